// What a subcommand's help says after its options: its exit statuses and two examples.
#ifndef VORNIK_CLI_COMMANDS_HELP_TEXTS_H
#define VORNIK_CLI_COMMANDS_HELP_TEXTS_H

namespace Vornik::Cli::HelpText {

inline constexpr char list[] = R"(Exit status:
  0   The folder is listed.
  2   FOLDER is not a folder.
  3   The folder could not be read to its end; what was read is listed.
  4   No file of the folder is a package descriptor that can be read.
  64  The command line is wrong.
  70  An exception ended the program.
  74  Standard output could not be written.

Examples:
  querypackage-cli list packages
  querypackage-cli list packages --show packages --format csv)";

inline constexpr char check[] = R"(Exit status:
  0   No descriptor of the folder would hang a query or end the process.
  2   FOLDER is not a folder.
  3   The folder could not be read to its end, and nothing was found so far.
  64  The command line is wrong.
  65  There is such a descriptor.
  70  An exception ended the program.
  74  Standard output could not be written.

Examples:
  querypackage-cli check packages
  querypackage-cli check packages --quiet)";

inline constexpr char query[] =
    R"(A verdict is "pass", "fail" or "none": the data that the filter needs are missing. A package is
offered if every filter that runs says "pass".
The output is coloured on a terminal, unless NO_COLOR is set to a text that is not empty, or TERM
is "dumb".

Exit status:
  0   The query ran: the verdicts are printed.
  2   The query was refused: FOLDER is not a folder, the machine type is not four digits, or an id
      is both included and excluded.
  3   The folder could not be read to its end.
  4   The folder has no package for this machine.
  64  The command line is wrong or incomplete, or the log file cannot be used.
  65  A descriptor that the query would reach would make it hang or end the process. --trust
      skips this check.
  70  An exception ended the query.
  74  Standard output could not be written.

Examples:
  querypackage-cli query packages --machine-type 1234 --os 10 --arch 9 --update-type 1
  querypackage-cli query packages --machine-type 1234 --os 10 --arch 9 --offered --format csv)";

inline constexpr char matrix[] =
    R"(Machines with the same type, operating system and architecture are of one kind and are evaluated
once. A cell is "offered", "refused" with the filters that refuse, "undecided" with those that lack
their data, or "absent": a query gives the machine no record of the package.

Exit status:
  0   The matrix is printed.
  1   With --fail-on unreachable: no machine gets some package.
  2   FOLDER is not a folder, or an id is both included and excluded.
  3   The folder could not be read to its end.
  4   The folder has no package, or names no machine.
  64  The command line is wrong, the file of machines has wrong lines, or the table does not fit
      the terminal.
  65  A descriptor that the query of a machine would reach would make it hang or end the process.
  70  An exception ended the program.
  74  Standard output could not be written.
  130 Interrupted; what is printed of csv and jsonl are whole lines.

Examples:
  querypackage-cli matrix packages --machines fleet.csv --format csv
  querypackage-cli matrix packages --machine "1234/*" --fail-on unreachable)";

inline constexpr char explain[] = R"(Exit status:
  0   The package, or why there is none, is explained.
  1   Nothing in the folder is known by the id.
  2   The query was refused: FOLDER is not a folder, the machine type is not four digits, or an id
      is both included and excluded.
  3   The folder could not be read to its end.
  10  With --exit-code: a package is refused. Of several statuses the greatest counts.
  11  With --exit-code: a package is undecided.
  12  With --exit-code: an id has no package, although the folder has it.
  13  With --exit-code, in place of 1: nothing is known by an id.
  64  The command line is wrong or incomplete, or the log file cannot be used.
  65  A descriptor that the query would reach would make it hang or end the process. --trust
      skips this check.
  70  An exception ended the query.
  71  An internal error: the verdicts of the query and those that explain evaluates disagree.
  74  Standard output could not be written.

Examples:
  querypackage-cli explain packages --machine-type 1234 --os 10 --arch 9 orx_drv_a
  querypackage-cli explain packages --machine-type 1234 --os 10 --arch 9 "orx_drv_*" --format json)";

inline constexpr char lint[] = R"(Exit status:
  0   No finding is severe enough to fail on, a baseline is written, or --explain has printed a
      finding.
  1   There are findings to fail on.
  2   FOLDER is not a folder, or a FILE is not in it.
  3   The folder could not be read to its end; the findings so far are reported.
  64  The command line is wrong, an id is unknown, or the file of --baseline cannot be read.
  70  An exception ended the program.
  74  Standard output, or the file of --write-baseline, could not be written.

Examples:
  querypackage-cli lint packages --fail-on warning
  querypackage-cli lint --explain supersede-ring)";

}  // namespace Vornik::Cli::HelpText

#endif  // VORNIK_CLI_COMMANDS_HELP_TEXTS_H
