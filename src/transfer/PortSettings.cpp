#include "transfer/PortSettings.h"

#include <array>
#include <span>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::transfer {

namespace {

constexpr const char* kNotConnected = "NO PORT CONNECTED";
constexpr std::size_t kPortDigits = 3;

constexpr std::array<const char*, 9> kBauds{"  110", "  300", "  600", " 1200", " 2400",
                                            " 9600", "14400", "19200", "28800"};
constexpr std::array<const char*, 5> kParities{"None", "Even", "Odd", "Mark", " Space"};
constexpr std::array<const char*, 5> kDataBits{"4", "5", "6", "7", "8"};
constexpr std::array<const char*, 3> kStopBits{"1", "1.5", "2"};

// The rows, with the one selected whose text stands for `value`: the whole of it, or its first
// character alone.
void FillList(ui::ComboBox& list, std::span<const char* const> rows, const std::string& value,
              bool firstAlone = false) {
  list.Clear();
  int selected = -1;
  for (const char* const row : rows) {
    const std::string own = firstAlone ? base::Left(row, 1) : std::string(row);
    if (base::EqualFolded(base::Trim(own), base::Trim(value))) selected = list.ListCount();
    list.AddItem(row);
  }
  list.ListIndex = selected;
}

}  // namespace

PortSettings::PortSettings(XmodWindow& window, const TransferParts& parts)
    : window_(window), parts_(parts) {
  window_.CmbCom.DropDown = [this] { LookUpPorts(); };
  window_.CmbCom.Click = [this] { ShowDevice(); };
}

void PortSettings::Fill() {
  const std::string settings = parts_.Port.Settings();
  const auto field = [&settings](int number) { return base::GetField(number, settings, ","); };
  FillList(window_.CmbBaud, kBauds, field(1));
  FillList(window_.CmbPar, kParities, field(2), true);
  FillList(window_.CmbDbit, kDataBits, field(3));
  FillList(window_.CmbSbit, kStopBits, field(4));
  FillPorts(parts_.Port.CommPort());
}

void PortSettings::FillPorts(int selected) {
  const std::vector<link::PortDevice> devices = parts_.Port.Devices();
  for (const link::PortDevice& device : devices) {
    if (device.IsNew) parts_.Ports.AddPort(device.Number);
  }
  ui::ListRows rows;
  int index = -1;
  const std::string& list = parts_.Ports.PortList();
  for (std::size_t at = 0; at < list.size(); at += kPortDigits) {
    const int number = base::LeadingInt(list.substr(at, kPortDigits));
    if (number == selected) index = static_cast<int>(rows.size());
    ui::ListRow row{.Text = "COM" + std::to_string(number), .ItemData = number};
    for (const link::PortDevice& device : devices) {
      if (device.Number == number) row.Detail = device.Words();
    }
    rows.push_back(std::move(row));
  }
  window_.CmbCom.ListIndex = -1;
  window_.CmbCom.Rows = std::move(rows);
  window_.CmbCom.ListIndex = index;
  ShowDevice();
}

void PortSettings::LookUpPorts() { FillPorts(window_.CmbCom.ItemData(window_.CmbCom.ListIndex)); }

void PortSettings::ShowDevice() {
  const int row = window_.CmbCom.ListIndex;
  window_.LblDevice.Caption =
      row < 0 ? "" : window_.CmbCom.Rows->at(static_cast<std::size_t>(row)).Detail;
}

void PortSettings::ShowState() {
  window_.LblPstat.Caption = parts_.Port.PortOpen()
                                 ? "PORT CONNECTED: " + std::to_string(parts_.Port.CommPort()) +
                                       " [" + parts_.Port.Settings() + "]"
                                 : kNotConnected;
}

std::string PortSettings::Port() const {
  return link::ComPort::FormatPortNumber(window_.CmbCom.ItemData(window_.CmbCom.ListIndex));
}

std::string PortSettings::Settings() const {
  const std::string present = parts_.Port.Settings();
  const auto chosen = [&present](const ui::ComboBox& list, int field) {
    return list.ListIndex < 0 ? base::GetField(field, present, ",") : list.SelectedText();
  };
  return chosen(window_.CmbBaud, 1) + "," + base::Left(chosen(window_.CmbPar, 2), 1) + "," +
         chosen(window_.CmbDbit, 3) + "," + chosen(window_.CmbSbit, 4);
}

link::PortSelection PortSettings::Selection() const {
  if (!HasSelection()) return {parts_.Port.CommPort(), parts_.Port.Settings()};
  return {base::LeadingInt(Port()), Settings()};
}

}  // namespace tintbench::transfer
