#pragma once

#include "common/host_window.h"
#include "common/options.h"

namespace example {

/// Reads the command line, calls `run` with it, and ends the library; the result is the program's status.
int Main(int argc, char** argv, int (*run)(const Options& options));

/// Shows the window until it is closed, or writes a picture of it to the file of the options; the status.
int Run(HostWindow& window, const Options& options);

}  // namespace example
