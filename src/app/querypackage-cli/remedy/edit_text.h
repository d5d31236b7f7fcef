// An edit of a repository in words. Nothing is escaped for a terminal.
#ifndef VORNIK_CLI_REMEDY_EDIT_TEXT_H
#define VORNIK_CLI_REMEDY_EDIT_TEXT_H

#include <string>
#include <vector>

#include "remedy/edit.h"

namespace Vornik::Cli {

namespace EditText {

// add "10" to "orderedOSList"
std::string AddToList(const std::string& property, const std::vector<std::string>& values);

// write "10" for "11" at position 2 of "orderedOSList"
std::string WriteAt(const std::string& property, std::size_t position, const std::string& before,
                    const std::string& after);

// take "a" out of "supersede"
std::string TakeOut(const std::string& property, const std::vector<std::string>& values);

// write "09.0" for "9.0" in "Version"
std::string Write(const std::string& property, const std::string& before, const std::string& after);

// add "type" with "1"
std::string Add(const std::string& property, const std::vector<std::string>& values);

// add the file packages/a.exe
std::string AddFile(const std::string& path);

// list "a" in packages/pack_1234.xml
std::string ListInPack(const std::string& code, const std::string& pack);

// give packages/pack_1234.xml an INSTANCE of its own
std::string AddOwnInstance(const std::string& pack);

}  // namespace EditText

// What to do, without the place.
std::string TextOf(const Edit& edit);

// The edits of one remedy: each as its place and what to do. Those of one position of the ordered
// lists are one line, and what more than five lines say is only counted.
//
//   p.xml:12: add "1234" with "10" and "9" to the ordered lists
std::vector<std::string> LinesOf(const Edits& edits);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_EDIT_TEXT_H
