// Compares the JSON documents of all tests of this process with the schemas, when the tests end.
#ifndef VORNIK_TESTS_CLI_DOCUMENT_CHECK_H
#define VORNIK_TESTS_CLI_DOCUMENT_CHECK_H

#include <string>

#include "program.h"

namespace Vornik::Testing {

// Keeps what the program has printed, if the arguments ask for a document that has a schema.
void KeepDocument(const Arguments& arguments, const std::string& out);

// What is wrong with a document of a subcommand; empty: nothing.
std::string FaultsOfDocument(const std::string& subcommand, const std::string& document);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_DOCUMENT_CHECK_H
