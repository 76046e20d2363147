// The frame of the machine's master serial line: a text with a check field between the codes 1
// and 3. Only the start and the end of service on that line need it; no frame is ever decoded.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/SerialPort.h"
#include "ui/Screen.h"

namespace tintbench::link {

inline constexpr char kFrameStart = '\x01';
inline constexpr char kFrameEnd = '\x03';

// The text that starts service on the master line, its check field still open.
inline constexpr std::string_view kStartOfService = "01SM____000";

// Gives `text` back with its four "_" filled by "00" and two digits: the exclusive or of the codes
// of all other characters, high half first, each half as the character of code 48 plus its value,
// so that 10 to 15 come out as ":" to "?". A text without four "_" in a row comes back as it is.
std::string MakeMasterFrame(std::string_view text);

// The frame as it goes on the wire: code 1, the filled text, code 3.
std::string MasterWireFrame(std::string_view text);

// Collects what comes until it holds the end of a frame, for ten seconds at the most and no longer
// than the port is open, and serves window events meanwhile. `tell` is called again and again with
// the seconds that are left.
std::string CollectUntilFrameEnd(SerialPort& port, ui::Screen& screen,
                                 const std::function<void(int)>& tell = {});

// What the machine answers to the start of service when it agrees, with codes 1 and 3.
std::string MasterStartAnswer();

}  // namespace tintbench::link
