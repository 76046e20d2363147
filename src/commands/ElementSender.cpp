#include "commands/ElementSender.h"

#include <algorithm>

#include "base/Text.h"

namespace tintbench::commands {

namespace {

constexpr std::size_t kSpeedWidth = 3;
constexpr double kPauseBetween = 0.8;    // seconds
constexpr double kAnswerPatience = 5.0;  // seconds
constexpr double kLookEvery = 0.01;      // seconds, while an answer is arriving

bool IsCapMove(CommandId row) { return row == CommandId::CapOpen || row == CommandId::CapClose; }
bool IsMotor(CommandId row) { return row == CommandId::MotorOn || row == CommandId::MotorOff; }
bool IsForEach(CommandId row) { return IsCapMove(row) || IsMotor(row); }

// Whether the row opens or starts something, so that the operator's HALT must come in between.
bool IsStart(CommandId row) { return row == CommandId::CapOpen || row == CommandId::MotorOn; }

std::string ExpectedAnswer(CommandId row, const std::string& elements) {
  return "A" + elements + (row == CommandId::VerifyDispensing || IsCapMove(row) ? "K" : "");
}

std::string ResultText(CommandId row, EchoCheck result) {
  if (result == EchoCheck::None) return "Machine doesn't answer !";
  if (result == EchoCheck::AsExpected) {
    return row == CommandId::VerifyDispensing ? "All conditions for purge are OK" : "Success !";
  }
  if (row != CommandId::VerifyDispensing) return "Failure !";
  return base::JoinLines({"Failure !", "Please, check all conditions for",
                          "  purge process on the machine", "  ( can is present ? ... )"});
}

std::string InBrackets(const std::string& text) { return "[ " + text + " ]"; }

// What a round is about, as the report tells it.
std::string RoundText(const std::string& description, const std::string& piece,
                      const std::string& speed) {
  std::string text = description;
  if (!piece.empty()) text += " " + InBrackets(base::Join(Pieces(piece, link::kElementWidth), " "));
  if (!speed.empty()) text += " -> speed " + base::Bracketed(speed);
  return text + " ... ";
}

bool Matches(std::string_view received, std::string_view expected) {
  if (expected.find('*') == std::string_view::npos) return received == expected;
  return received.size() <= expected.size() &&
         std::equal(received.begin(), received.end(), expected.begin(),
                    [](char got, char wanted) { return wanted == '*' || got == wanted; });
}

}  // namespace

std::vector<std::string> Pieces(std::string_view text, std::size_t width) {
  std::vector<std::string> pieces;
  for (std::size_t at = 0; at < text.size(); at += width) {
    pieces.emplace_back(text.substr(at, width));
  }
  return pieces;
}

bool ElementSender::HasWhatItMoves(CommandId row) const {
  const config::MachineFacts& facts = window_.Work.Facts;
  switch (row) {
    case CommandId::CapOpen:
    case CommandId::CapClose:
      return facts.CapCount != 0;
    case CommandId::CapIntermediate:
      return !facts.CapThreePositionList.empty();
    case CommandId::Punch:
      return facts.HasPuncher;
    case CommandId::ShelfUp:
    case CommandId::ShelfDown:
      return facts.HasShelf;
    default:
      return true;
  }
}

bool ElementSender::SendElements(CommandId row, const std::string& elements,
                                 const std::string& speeds) {
  if (!HasWhatItMoves(row)) return true;
  const bool takesElements = window_.Work.Table.Row(row).Command.find(' ') != std::string::npos;
  if (takesElements && elements.empty()) return false;
  if (row == CommandId::MotorOn &&
      speeds.size() * link::kElementWidth != elements.size() * kSpeedWidth) {
    return false;
  }
  if (IsForEach(row)) return SendEach(row, elements, speeds);
  const bool withPiece = row == CommandId::ValvesOn || row == CommandId::ValvesOff;
  return SendRound(row, withPiece ? elements : "", "", ExpectedAnswer(row, elements));
}

bool ElementSender::SendEach(CommandId row, const std::string& elements,
                             const std::string& speeds) {
  const std::vector<std::string> pieces = Pieces(elements, link::kElementWidth);
  const std::vector<std::string> speedOf = Pieces(speeds, kSpeedWidth);
  bool good = true;
  for (std::size_t round = 0; round < pieces.size(); ++round) {
    const std::string& piece = pieces[round];
    // The machine echoes one cap a time, so several caps in one go never count as a success.
    const std::string expected = ExpectedAnswer(row, IsMotor(row) ? piece : elements);
    const std::string speed = row == CommandId::MotorOn ? speedOf[round] : std::string();
    good = SendRound(row, piece, speed, expected) && good;
    if (pieces.size() == 1) break;
    if (!IsStart(row)) {
      window_.Work.Screen.Time().Sleep(kPauseBetween);
    } else if (window_.AbortableWait(kPauseBetween)) {
      break;
    }
  }
  return good;
}

bool ElementSender::SendRound(CommandId row, const std::string& piece, const std::string& speed,
                              const std::string& expected) {
  const link::CommandRow& command = window_.Work.Table.Row(row);
  window_.AddToReport(RoundText(command.Description, piece, speed));
  // An answer that came late may still lie on the line: taken for the beginning of the next one, it
  // would keep valves and caps from being closed.
  if (window_.Work.Port.InBufferCount() > 0) window_.Work.Port.Input();
  const std::string wire = link::FinishCommand(command.Command, piece + speed);
  const bool goesOut = window_.Work.Port.PortOpen();
  window_.Work.Port.Output(wire);
  const EchoCheck result = GetDoubleAnswer(expected);
  if (goesOut) window_.Book(wire, base::ToUpper(answer_));
  window_.AddToReport(ResultText(row, result).append(base::kCrLf));
  return result == EchoCheck::AsExpected;
}

EchoCheck ElementSender::GetDoubleAnswer(const std::string& expected) {
  const std::string wanted = base::ToUpper(expected);
  const bool whole = AwaitCharacters(wanted.size());
  // A refusal is shorter than what is due, and must not spoil the answer to the next command.
  answer_ = window_.Work.Port.Input();
  if (!whole) return EchoCheck::None;
  if (window_.Work.Log.DebugLevel() == link::kDebugCommands && !window_.Flags.Closing) {
    window_.ShowReceived(answer_);
  }
  return Matches(answer_, wanted) ? EchoCheck::AsExpected : EchoCheck::Other;
}

bool ElementSender::AwaitCharacters(std::size_t count) {
  link::SerialPort& port = window_.Work.Port;
  base::Clock& clock = window_.Work.Screen.Time();
  const double end = clock.Now() + kAnswerPatience;
  std::size_t present = port.InBufferCount();
  while (present < count) {
    const double rest = end - clock.Now();
    if (rest <= 0 || !port.PortOpen()) return false;
    if (present == 0) {
      port.WaitForInput(rest);
    } else {
      clock.SleepUntil(std::min(end, clock.Now() + kLookEvery));
    }
    present = port.InBufferCount();
  }
  return true;
}

}  // namespace tintbench::commands
