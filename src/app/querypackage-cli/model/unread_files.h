// Files that a query does not read as descriptors although they may be meant as such, and files
// that it cannot load: which of them contain a package's code.
#ifndef VORNIK_CLI_MODEL_UNREAD_FILES_H
#define VORNIK_CLI_MODEL_UNREAD_FILES_H

#include <string>
#include <vector>

namespace Vornik::Cli {

struct UnreadFile {
  std::string path;
  std::string name;  // the last component
  bool inSubfolder = false;
  bool otherExtension = false;  // the name does not end in exactly ".xml"
};

// Regular files of the folder that are passed over for their name, and of its subfolders, which
// are not searched; only names with ".xml" in them, in any case. What cannot be listed is left out.
std::vector<UnreadFile> FindUnreadFiles(const std::string& folder);

enum class CodeEvidence {
  None,
  IsCode,    // an "identificationCode" of the loaded document
  IsInText,  // the document does not load; the code is the text of an element
  IsName,    // of the file, with or without its extension
};

struct CodeFinding {
  CodeEvidence evidence = CodeEvidence::None;
  std::string spelling;  // as the file has it
};

// Whether a file contains a code, in any case.
CodeFinding FindCodeIn(const std::string& path, const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_UNREAD_FILES_H
