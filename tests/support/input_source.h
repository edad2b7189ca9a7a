#pragma once

#include <qvui/platform/platform.h>

/// Where synthetic input enters, one implementation per target. Nothing is dispatched.
namespace qvui::test {

void InjectMove(POINT screen);
void InjectButton(int button, bool isDown);
void InjectWheel(int delta);
void InjectKey(int virtualKey, bool isDown);

}  // namespace qvui::test
