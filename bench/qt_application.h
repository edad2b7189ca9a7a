#pragma once

#include <QApplication>

namespace qvui::bench {

/// The one application of Qt that a program has, made when it is first asked for.
inline QApplication& Application()
{
    static int argumentCount = 1;
    static char name[] = "bench";
    static char* arguments[] = {name, nullptr};
    static QApplication application(argumentCount, arguments);
    return application;
}

}  // namespace qvui::bench
