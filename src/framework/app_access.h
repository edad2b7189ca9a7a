#pragma once

#include <qvui/framework/app.h>

namespace DUI {

/// The application object of the process, which DUIGetAppInstance hands out.
IDUIApp& App();

/// The table of built-in tags, which a room above this one defines: it names controls of all rooms. It is set
/// before the application object is handed out for the first time.
using BuiltinTable = const std::vector<BuiltinControl>& (*)();
void SetBuiltinControls(BuiltinTable table);

}  // namespace DUI
