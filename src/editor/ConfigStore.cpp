#include "editor/ConfigStore.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "config/ConfigFile.h"

namespace tintbench::editor {

namespace {

constexpr int kSavedSlave = 1;

// The table of a tag, for one slave; Table 0 if no table has the tag.
TablePlace PlaceOf(const std::string& tag, int slave) {
  const config::ConfigTable* table = config::FindConfigTable(tag);
  if (table == nullptr) return {config::ConfigGroup::kStandard, 0, slave};
  const auto number = table - config::TablesOf(table->Group).data() + 1;
  return {table->Group, static_cast<int>(number), slave};
}

// A file's text while it grows line by line.
class FileText {
 public:
  void Add(const std::string& line) { text_.append(line).append(base::kCrLf); }

  // A line that has to be read again as it is. `what` tells the operator which one it is.
  void AddData(const std::string& line, const std::string& what) {
    if (error_.empty() && line.size() > config::ConfigReader::kLineLimit) {
      error_ = what + " is too long for a line of the file";
    }
    if (error_.empty() && line.find('\n') != std::string::npos) {
      error_ = what + " holds a line end";
    }
    Add(line);
  }

  const std::string& Text() const { return text_; }
  // Why no reader would take the text; empty if it would.
  std::string Error() const {
    const bool tooLarge = text_.size() > config::ConfigReader::kFileLimit;
    return error_.empty() && tooLarge ? "the configuration is too large for a file" : error_;
  }

 private:
  std::string text_;
  std::string error_;
};

void AddHeader(const ConfigWriter& writer, const ConfigName& original, FileText& file) {
  const base::LocalTime now = writer.Clock.Local();
  const base::AppIdentity& program = writer.Identity;
  file.Add("% Creation date/time: " + base::DateText(now) + ", " + base::TimeText(now));
  file.Add("% ");
  file.Add("% " + program.AppTitle + " version " + program.AppMajor + "." + program.AppMinor);
  file.Add("% ");
  file.Add("% Original configuration was");
  file.Add("% " + original.Folder + original.Stem + "." + original.Extension + "( " +
           original.Date + ", " + original.Time + " )");
  file.Add("");
}

// The table's elements in use. Gives the count of parameters filled.
int AddTable(const ConfigWriter& writer, const EditingModel& model, const TablePlace& at,
             FileText& file) {
  const std::string tag(TableAt(at)->Tag);
  int filled = 0;
  for (int element = 1; element <= model.ElementCount(at); ++element) {
    if (model.IsRemoved({at, element})) continue;
    const FilledLine line = FillEmptyFields(writer.Catalogue, at, model.ElementLine({at, element}));
    filled += line.Filled;
    file.AddData(tag + " " + std::to_string(at.Slave) + " " + line.Line,
                 "element " + std::to_string(element) + " of table " + tag);
  }
  return filled;
}

int AddGroup(const ConfigWriter& writer, const EditingModel& model, config::ConfigGroup group,
             FileText& file) {
  const int tables = static_cast<int>(config::TablesOf(group).size());
  int elements = 0;
  for (int table = 1; table <= tables; ++table) {
    elements += model.ElementCount({group, table, kSavedSlave});
  }
  if (elements == 0) return 0;
  if (group == config::ConfigGroup::kStandard) file.Add("@ICS " + std::to_string(kSavedSlave));
  int filled = 0;
  for (int table = 1; table <= tables; ++table) {
    filled += AddTable(writer, model, {group, table, kSavedSlave}, file);
  }
  return filled;
}

}  // namespace

std::string ConfigName::FullName() const {
  return Folder + Stem + (Extension.empty() ? "" : "." + Extension);
}

ConfigName NamedConfig(const base::FileSystem& files, std::string folder, std::string stem,
                       std::string extension) {
  ConfigName name{std::move(folder), std::move(stem), std::move(extension), {}, {}};
  if (const auto stamp = files.TimeStamp(name.FullName())) {
    name.Date = base::DateText(*stamp);
    name.Time = base::TimeText(*stamp);
  }
  return name;
}

base::FileResult LoadConfigFile(base::FileSystem& files, const std::string& path,
                                EditingModel& model) {
  EditingModel loaded;
  config::ConfigReader reader(files, path);
  for (config::ConfigRecord record; reader.NextRecord(record);) {
    loaded.Append(PlaceOf(record.Tag, record.Slave), record.Data);
  }
  if (reader.Failed()) return base::FileResult(reader.Error());
  model = std::move(loaded);
  return {};
}

WriteOutcome ConfigWriter::WriteConfigFile(const EditingModel& model, const ConfigName& original,
                                           const std::string& path) const {
  FileText file;
  AddHeader(*this, original, file);
  WriteOutcome outcome;
  for (int group = 0; group < config::kConfigGroupCount; ++group) {
    outcome.Filled += AddGroup(*this, model, static_cast<config::ConfigGroup>(group), file);
  }
  file.Add("@ECS " + std::to_string(kSavedSlave));
  file.Add("@PDD " + std::to_string(kSavedSlave));
  const std::string error = file.Error();
  outcome.Result =
      error.empty() ? base::ReplaceFile(Files, path, file.Text()) : base::FileResult(error);
  return outcome;
}

FilledLine FillEmptyFields(const config::ParameterCatalogue& catalogue, const TablePlace& at,
                           std::string_view line) {
  if (line.find(",,") == std::string_view::npos) return {std::string(line), 0};
  // One more comma, so that an empty field behind the line's last one is a field too.
  std::vector<std::string> fields = base::SplitFields(std::string(line).append(","), ",");
  FilledLine filled;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields[i] = base::Trim(fields[i]);
    if (!fields[i].empty()) continue;
    fields[i] = catalogue.ParameterDefault(at.Group, at.Table, static_cast<int>(i) + 1);
    ++filled.Filled;
  }
  filled.Line = base::Join(fields, ",");
  return filled;
}

}  // namespace tintbench::editor
