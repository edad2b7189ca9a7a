#pragma once

#include <memory>
#include <vector>

#include <qvui/platform/cstring.h>

namespace DUI {

struct StyleAttribute {
    CString name;
    CString value;
};
using StyleAttributes = std::vector<StyleAttribute>;

/// The attributes of a control style's XML text, in document order, without "name" and "control_style"; null
/// when the text is no control style. Thousands of controls share a few styles, so texts read once are
/// remembered.
std::shared_ptr<const StyleAttributes> ReadControlStyle(const CString& xml);
void ForgetControlStyles();

}  // namespace DUI
