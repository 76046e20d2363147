// The exchange of all counts with the machine, with old firmware element by element and with new
// firmware type by type. A datum that fails is counted and passed over.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "stats/StatExchange.h"

namespace tintbench::stats {

class BulkExchange {
 public:
  explicit BulkExchange(const StatParts& parts) : parts_(parts) {}

  bool IsRunning() const { return running_; }
  // Ends what runs behind the transaction under way.
  void Stop();

  // Each asks first. A reception takes the place of the file `path` at its end; `name` is what the
  // operator calls it.
  void ReceiveAll(const StatElements& elements, const std::string& path, const std::string& name);
  void ReceiveAllFast(const StatElements& elements, const std::string& path,
                      const std::string& name);
  void SendAll(const std::string& path, const std::string& name);
  void ResetAll(const StatElements& elements);

 private:
  // What is done with an element, or with a type.
  using Act = std::function<void(int tab, const std::string& element)>;
  // How a good answer must be: its length, and what stands behind the "A".
  struct Wanted {
    std::size_t Length;
    std::string_view Echo = {};
  };

  bool Begin(const char* title, const std::string& question);
  void End();
  // False once there is nothing more to do.
  bool NextItem();
  void EachElement(const StatElements& elements, const Act& act);
  std::string Ask(link::CommandId row, const std::string& argument,
                  std::optional<int> length = std::nullopt);
  void Count(int tab, const std::string& element, const std::string& answer, const Wanted& wanted);
  void CountUnsent(int tab, const std::string& element, const std::string& reason);
  // Receives into a file: `receive` asks the machine and writes lines.
  void ReceiveInto(const std::string& path, const std::string& name,
                   const std::function<void()>& receive);
  void WriteLine(int tab, std::string_view element, const std::string& values);
  void NotStored(const base::FileResult& result);
  void ReceiveType(int tab, link::CommandId row, int elements);
  void WriteRecords(int tab, const std::string& answer);
  void SendLine(const DataLine& line);
  std::string Stamp() const { return MakeTimeStamp(parts_.Clock.Local()); }

  StatParts parts_;
  const char* title_ = "";
  bool running_ = false;
  bool stopped_ = false;  // by the operator
  bool lost_ = false;     // the port is closed
  int number_ = 0;        // of the item in hand, from 1
  base::ReplacementFile* target_ = nullptr;
  std::string problem_;  // with a file, in words
};

}  // namespace tintbench::stats
