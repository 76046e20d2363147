// The messages of the machine's errors, by code. The machine's own spelling stays as it is.
#pragma once

#include <array>
#include <string_view>

namespace tintbench::state {

// One row for a code, or for the family of codes that begin like it.
struct ErrorRow {
  std::string_view Code;
  std::string_view Message;
  std::string_view Suffix = {};  // ends the message, before the number
};

// clang-format off
inline constexpr std::string_view kOnUnit = " on motor-pump unit";
inline constexpr std::string_view kAtAddress = " at address";

// Families: the last two digits of a code are a unit's number.
inline constexpr auto kFamilyRows = std::to_array<ErrorRow>({
    {"0100", "Communication error with motor-pump unit"},
    {"0200", "Check canister level"},
    {"0300", "Process error on motor-pump unit"},
    {"0400", "Single recirculation/stirring conflict"},
    {"0500", "Single stirring/recirculation conflict"},
    {"0600", "Recirc.(dual circuit)/single recirc. conflict"},
    {"0700", "Valve in short circuit"},
    {"0800", "Valve disconnected"},
    {"0900", "TPIC damaged"},
    {"0A00", "Stirring in short circuit"},
    {"0B00", "Stirring disconnected"},
    {"0C00", "Quantity too low in dispensing process"},
    {"0D00", "Quantity too low in ramp dispensing process"},
    {"0E00", "Motor-pump unit disabled by the machine"},
    {"0F00", "Motor-pump unit configuration missing"},
    {"1100", "Encoder damaged", kOnUnit},
    {"1200", "No zero-pump signal", kOnUnit},
    {"1300", "No initialization", kOnUnit},
    {"1700", "Blocked inverter", kOnUnit},
    {"1800", "No eprom voltage", kOnUnit},
    {"1900", "No inverter voltage", kOnUnit},
    {"1A00", "Wrong commands", kOnUnit},
    {"1B00", "Wrong dispensing tables", kOnUnit},
    {"1C00", "No main power supply", kOnUnit},
    {"1D00", "CME error", kOnUnit},
    {"1E00", "System error", kOnUnit},
    {"1F00", "ILLEGAL OPERATION error", kOnUnit},
    {"2000", "W_DOG error", kOnUnit},
    {"2200", "Error in pump suction, inlet pump valve close", kOnUnit},
    {"2300", "Error in pump delivery, outlet pump valve close", kOnUnit},
    {"2400", "Stirring disabled", kOnUnit},
    {"2500", "Stirring contactor disabled", kOnUnit},
    {"2600", "Stirring thermo-magnetic disabled", kOnUnit},
    {"2700", "Error in flowmeter", kOnUnit},
    {"2800", "Pump over pressure in delivery", kOnUnit},
    {"2900", "Pump over pressure in suction", kOnUnit},
    {"2A00", "Over temperature", kOnUnit},
    {"2B00", "Minimum level reached", kOnUnit},
    {"2C00", "Delivery pressure sensor disconnected", kOnUnit},
    {"2D00", "Suction pressure sensor disconnected", kOnUnit},
    {"2E00", "Temperature sensor disconnected", kOnUnit},
    {"2F00", "Level sensor disconnected", kOnUnit},
    {"3000", "Valve in short circuit"},
    {"3100", "Valve disconnected"},
    {"3200", "Stirring in short circuit"},
    {"3300", "Stirring disconnected"},
    {"4000", "Error in cap movement"},
    {"4100", "Communication error betwen BRIXEL1 and BRIXEL2( circuits )", kAtAddress},
    {"4200", "Communication error betwen BRIXEL1 and BRIXEL2( stirrings )", kAtAddress},
    {"4300", "Wrong address setting on BRIXEL2", kAtAddress},
});

// Single codes of the machine's operating system and its dispensing logic.
inline constexpr auto kCodeRows = std::to_array<ErrorRow>({
    {"7000", "Generic error"},
    {"7002", "CPU error"},
    {"7003", "CME error"},
    {"7004", "ILLEGAL OPERATION error"},
    {"7005", "SYS. VIMROS error"},
    {"7006", "W_DOG error"},
    {"7007", "RS485 line busy"},
    {"7008", "Serious error"},
    {"7010", "Error while creating a task"},
    {"7011", "Priority error"},
    {"7012", "Error on a semaphore"},
    {"7013", "Overflow semaphore error"},
    {"7014", "Error while deleting a task"},
    {"7015", "Error while deleting an idle task"},
    {"7016", "Error: resources not available"},
    {"7020", "Bus error"},
    {"7021", "Address error"},
    {"7022", "Zero division"},
    {"7023", "Privilege violation"},
    {"7024", "Line 1010 error"},
    {"7025", "Line 1111 error"},
    {"7026", "Format error"},
    {"7027", "Spurious interrupt"},
    {"7028", "Hardware breakpoint"},
    {"8000", "Photocell disengaged"},
    {"8001", "Machine encoder out of order"},
    {"8002", "STOP button depressed"},
    {"8003", "System power failure during dispensing"},
    {"8004", "Serious communication error"},
    {"8005", "Booster missing"},
    {"8006", "Stirrings disabled( thermo-magnetic switches )"},
    {"8007", "Too many single processes activated"},
    {"8008", "Machine pump, zero signal error"},
    {"8009", "Encoder 1 missing on the shelf"},
    {"800A", "No power supply on the shelf"},
    {"800B", "Encoder 2 missing on the shelf"},
    {"800C", "Reference plane not reached"},
    {"800D", "Two sensors of fast shelf are inverted"},
    {"800E", "Release the STOP button"},
    {"800F", "Formula doesn't exist"},
    {"8010", "Punch error"},
    {"8011", "Lid of the can is missing during punch"},
    {"8012", "Single recirculation in progress"},
    {"8013", "Single stirring in progress"},
    {"8014", "BRIXEL2s not well configured"},
    {"8015", "Shelf stroke deceleration"},
    {"8016", "Machine pump, second zero signal error"},
    {"8500", "Error on cap movement"},
    {"8501", "Cap closed in dispensing process"},
    {"8502", "Air pression error"},
    {"8503", "Water minimum error"},
    {"8504", "Maximum discharge error"},
    {"9000", "Configuration missing"},
    {"9001", "CRC error in configuration file on flash-eprom"},
    {"9002", "General configuration error"},
    {"9003", "Error in XMODEM communication"},
    {"9004", "Error in dispenser address"},
    {"D000", "Error: dispensing process interrupted by operating system. Check last can"},
    {"D001", "Valves air pressure low"},
    {"D002", "Valves air pressure low while dispensing. Check last can"},
    {"D800", "Timer list NOT created"},
    {"D801", "No free timer"},
});
// clang-format on

// A section of the machine's that no table of ours knows; the message is its tag. The sections that
// have a table stand with it.
inline constexpr ErrorRow kForeignSection{"91B0", "@AG2"};

}  // namespace tintbench::state
