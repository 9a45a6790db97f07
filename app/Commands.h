#pragma once
// The commands of the program, one source file each.

#include "app/CommandLine.h"

namespace zor {

extern const Command renderCommand;
extern const Command serveCommand;
extern const Command catalogueCommand;
extern const Command inspectCommand;
extern const Command newCommand;
extern const Command driveCommand;
extern const Command openCommand;

}  // namespace zor
