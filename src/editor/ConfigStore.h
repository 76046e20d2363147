// From a configuration file to the editing model, and back.
#pragma once

#include <string>
#include <string_view>

#include "base/AppIdentity.h"
#include "base/Clock.h"
#include "base/Files.h"
#include "config/ParameterCatalogue.h"
#include "editor/EditingModel.h"

namespace tintbench::editor {

// The file that is edited, and when it was last written; both texts are empty if it isn't there.
struct ConfigName {
  std::string Folder;  // with its closing separator
  std::string Stem;
  std::string Extension;
  std::string Date;
  std::string Time;

  std::string FullName() const;
};

// The name with the file's present time stamp.
ConfigName NamedConfig(const base::FileSystem& files, std::string folder, std::string stem,
                       std::string extension);

// Fills the model anew from the file's data lines, in their order. Lines of unknown tags are
// dropped, and neither element numbers nor the count of fields are looked at. If the file can't be
// read whole, or is far larger than any configuration, the model stays as it was.
base::FileResult LoadConfigFile(base::FileSystem& files, const std::string& path,
                                EditingModel& model);

struct WriteOutcome {
  base::FileResult Result;
  int Filled = 0;  // parameters that were empty and have taken their default
};

// Who writes, and from what.
struct ConfigWriter {
  base::FileSystem& Files;
  const base::Clock& Clock;
  const base::AppIdentity& Identity;
  const config::ParameterCatalogue& Catalogue;

  // Writes the elements in use of slave 1, and of no other, in the place of the file `path`, with
  // a header that names the file `original`. Nothing is written that LoadConfigFile would refuse.
  WriteOutcome WriteConfigFile(const EditingModel& model, const ConfigName& original,
                               const std::string& path) const;
};

struct FilledLine {
  std::string Line;
  int Filled = 0;
};

// A line of the table with its defaults in place of the empty parameters. A line of which only the
// first or the last parameter is empty stays as it is.
FilledLine FillEmptyFields(const config::ParameterCatalogue& catalogue, const TablePlace& at,
                           std::string_view line);

}  // namespace tintbench::editor
