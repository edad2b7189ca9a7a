#pragma once

namespace qvui::test {

/// "native" or "windows".
const char* TargetName();

/// What a test program does before anything else: a native one runs on the headless display unless the
/// environment names another.
void PrepareTarget();

}  // namespace qvui::test
