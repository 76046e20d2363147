#include "qt/LineSettings.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::desktop {

namespace {

constexpr std::array<std::pair<std::string_view, QSerialPort::Parity>, 6> kParities{{
    {"N", QSerialPort::NoParity},
    {"E", QSerialPort::EvenParity},
    {"O", QSerialPort::OddParity},
    {"M", QSerialPort::MarkParity},
    {"S", QSerialPort::SpaceParity},
    {"", QSerialPort::SpaceParity},
}};
constexpr std::array<std::pair<std::string_view, QSerialPort::DataBits>, 4> kDataBits{{
    {"5", QSerialPort::Data5},
    {"6", QSerialPort::Data6},
    {"7", QSerialPort::Data7},
    {"8", QSerialPort::Data8},
}};
#ifdef Q_OS_WIN
constexpr QSerialPort::StopBits kOneAndHalfStop = QSerialPort::OneAndHalfStop;
#else
// Elsewhere there is no such setting. Two are 1.5 with five data bits, and with more of them a
// longer rest than the other end asks for, which hurts nobody.
constexpr QSerialPort::StopBits kOneAndHalfStop = QSerialPort::TwoStop;
#endif

constexpr std::array<std::pair<std::string_view, QSerialPort::StopBits>, 3> kStopBits{{
    {"1", QSerialPort::OneStop},
    {"1.5", kOneAndHalfStop},
    {"2", QSerialPort::TwoStop},
}};
constexpr int kFields = 4;

// Puts what stands beside the field's text into `value`. False if the text isn't in the table.
template <typename Table, typename Value>
bool LookUp(const Table& table, int field, const std::string& text, Value& value) {
  const std::string word = base::ToUpper(base::Trim(base::GetField(field, text, ",")));
  const auto found = std::find_if(table.begin(), table.end(),
                                  [&](const auto& entry) { return entry.first == word; });
  if (found == table.end()) return false;
  value = found->second;
  return true;
}

}  // namespace

bool ParseLineSettings(const std::string& text, LineSettings& settings) {
  const std::string baud = base::Trim(base::GetField(1, text, ","));
  if (base::CountFields(text, ",") != kFields || !base::IsNumeric(baud)) return false;
  settings.Baud = base::LeadingInt(baud);
  return settings.Baud > 0 && LookUp(kParities, 2, text, settings.Parity) &&
         LookUp(kDataBits, 3, text, settings.DataBits) &&
         LookUp(kStopBits, 4, text, settings.StopBits);
}

}  // namespace tintbench::desktop
