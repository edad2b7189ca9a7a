#pragma once

#include "platform/script/script.h"

/// A script of calls for text, files, modules and memory. File names may begin with "data:", the folder of
/// the test's files, "output:", that of what tests write, and "program:" or "program/", the program's own
/// in back-slashes or slashes.
class KernelScript : public qvui::test::Script {
public:
    KernelScript();

    std::string TextOf(const std::string& word) const override;

protected:
    void EndCase() override;

private:
    void AddText();
    void AddCodePages();
    void AddFiles();
    void AddModules();
    void AddMemory();
};

/// The path of the program or of a loaded module.
std::string ModulePath(HMODULE module);
