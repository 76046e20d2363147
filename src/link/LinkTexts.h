// The words of link-up: what the boxes say about the state that the link has reached.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "link/LinkStatus.h"
#include "ui/Screen.h"

namespace tintbench::link {

// The box on a firmware that isn't known (number below 1) or too old (below 4); nothing for a
// firmware that is as it should be.
std::optional<ui::Box> FirmwareWarning(int firmwareNumber);

// The box on what link-up did not reach, and on the default configuration if it is in use;
// nothing after a good link-up.
std::optional<ui::Box> LinkWarning(const LinkStatus& status, const std::string& defaultConfigFile);

// "port2: 19200,N,8,1".
std::string PortCaption(int number, const std::string& settings);
inline constexpr const char* kNoPortCaption = "port ( none )";

// The captions of the menu lines on the configuration and the firmware in use.
std::string ConfigurationCaption(const std::string& configFileName);
// `width` measures a drawn text: the word is padded until it is as wide as that of the line above.
std::string FirmwareCaption(const std::string& firmwareVersion,
                            const std::function<double(const std::string&)>& width);

}  // namespace tintbench::link
