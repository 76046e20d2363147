// The configuration that the machine runs: the text of its file and the values in it.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::simulator {

class Configuration {
 public:
  // Reads the lines of one slave. Bad text of any kind is read as far as it makes sense; `Fault`
  // tells what a machine would say of it.
  static Configuration Read(std::string_view text, int slave);

  // The error code that the machine gives for this file, four hexadecimal digits: the section's
  // base plus the field number for an empty field, "9000" without any data, "9002" otherwise.
  // Empty if the file is good.
  const std::string& Fault() const { return fault_; }

  // The file as it was read, without the padding that a transfer leaves behind it.
  const std::string& Text() const { return text_; }

  int Slave() const { return slave_; }

  // The file's text with a field, from 1, of an element's line changed, or without that line for
  // field 0; all lines of the table if no element is given. Nothing if there is no such field.
  std::optional<std::string> Edited(std::string_view tag, std::optional<int> element,
                                    std::size_t field, std::string_view value) const;

  // The element numbers of a table ("@MOT"), in the order of the file.
  const std::vector<int>& Elements(std::string_view tag) const;
  bool Has(std::string_view tag, int element) const;

  // Field `field` (from 1) of an element's line, without double quotes around it; empty if there
  // is none. `Number` gives its leading whole number, `fallback` for an empty field.
  std::string Field(std::string_view tag, int element, std::size_t field) const;
  int Number(std::string_view tag, int element, std::size_t field, int fallback) const;

  // The same for the first line of a table with one element.
  std::string Field(std::string_view tag, std::size_t field) const;
  int Number(std::string_view tag, std::size_t field, int fallback) const;

 private:
  struct Table {
    std::vector<int> Order;
    std::map<int, std::vector<std::string>> Rows;
  };

  struct Line {
    std::string Tag;
    std::vector<std::string> Fields;
  };

  // A line of this slave; nothing for any other.
  std::optional<Line> Parse(std::string_view line) const;
  const std::vector<std::string>* Row(std::string_view tag, int element) const;
  const Table* Find(std::string_view tag) const;
  void TakeLine(std::string_view text);
  void Check(const std::string& tag, const std::vector<std::string>& fields);

  int slave_ = 1;
  std::string text_;
  std::string fault_;
  std::map<std::string, Table, std::less<>> tables_;
};

}  // namespace tintbench::simulator
