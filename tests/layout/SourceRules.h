// The rules that the program's sources keep: which folder may know which, and where time and the
// operating system may be touched.
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

// Only base/StandardFileSystem.cpp touches files, or a test could make no operation fail.
Faults FindFileUses(const std::vector<SourceFile>& files);

// A file of more than 400 lines says in one of its first 15 why it is "Longer than" that.
Faults FindLongFiles(const std::vector<SourceFile>& files);

}  // namespace tintbench::layout
