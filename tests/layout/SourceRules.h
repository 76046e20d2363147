// The rules that the program's sources keep: which folder may know which, where time and the
// operating system may be touched, and that nothing mutable is shared behind the objects' backs.
#pragma once

#include <string>
#include <vector>

#include "layout/SourceText.h"

namespace tintbench::layout {

// Each rule takes the whole tree and gives one line for each fault, "path:line: what is wrong".
using Faults = std::vector<std::string>;
using Rule = Faults (*)(const std::vector<SourceFile>& files);

// A folder includes itself and lower floors only, and folders of one floor don't know one
// another. The simulator knows base/ and the serial port's face alone.
Faults FindLadderFaults(const std::vector<SourceFile>& files);

// Outside the desktop and the composition root only the C++ standard library is included: no
// toolkit, no header of an operating system.
Faults FindForeignHeaders(const std::vector<SourceFile>& files);

// No file reaches itself through the files that it includes.
Faults FindIncludeCycles(const std::vector<SourceFile>& files);

// Only base/Clock.cpp asks for the time or sleeps.
Faults FindClockUses(const std::vector<SourceFile>& files);

// A file of more than 400 lines says in one of its first 15 why it is "Longer than" that.
Faults FindLongFiles(const std::vector<SourceFile>& files);

// No variable outlives its scope: no global, static or thread-local one that can change. Read
// from the text, so macros and aliases can hide one.
Faults FindMutableGlobals(const std::vector<SourceFile>& files);

}  // namespace tintbench::layout
