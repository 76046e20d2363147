// The settings text of a port, such as "19200,N,8,1", in the terms of the toolkit's serial port.
#pragma once

#include <QSerialPort>
#include <string>

namespace tintbench::desktop {

struct LineSettings {
  int Baud = 9600;
  QSerialPort::Parity Parity = QSerialPort::NoParity;
  QSerialPort::DataBits DataBits = QSerialPort::Data8;
  QSerialPort::StopBits StopBits = QSerialPort::OneStop;
};

// Reads speed, parity (N, E, O, M, S or a blank for space), data bits (5 to 8) and stop bits (1,
// 1.5 or 2). False if the text isn't of that form or asks for what no port can do.
bool ParseLineSettings(const std::string& text, LineSettings& settings);

}  // namespace tintbench::desktop
