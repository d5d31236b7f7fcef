// A folder with edits applied, evaluated for one query.
#ifndef VORNIK_CLI_REMEDY_EDITED_FOLDER_H
#define VORNIK_CLI_REMEDY_EDITED_FOLDER_H

#include <map>
#include <optional>
#include <string>

#include "model/query_model.h"
#include "model/query_settings.h"
#include "remedy/edit.h"
#include "remedy/folder_copy.h"

namespace Vornik::Cli {

// Which paths are regular files, each looked up once.
class FileStates {
 public:
  bool IsFile(const std::string& path);

  // Whether a file can be added: nothing has the path, and nothing but folders is on the way.
  static bool CanAdd(const std::string& path);

 private:
  std::map<std::string, bool> known_;
};

class EditedFolder {
 public:
  // files is borrowed.
  EditedFolder(FolderCopy copy, const Edits& edits, const std::string& path, FileStates& files);
  EditedFolder(const EditedFolder&) = delete;
  EditedFolder& operator=(const EditedFolder&) = delete;

  FolderCopy& Copy() { return copy_; }
  QueryModel& Model() { return model_; }
  const IsFile& Files() const { return isFile_; }

  // The instance of a source of the model.
  CopiedInstance& InstanceOf(const PropertySource& source);

 private:
  FolderCopy copy_;
  FolderReading reading_;
  IsFile isFile_;
  QueryModel model_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_EDITED_FOLDER_H
