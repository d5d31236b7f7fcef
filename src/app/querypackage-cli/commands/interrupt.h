// An interrupt from the keyboard, for commands that end in good order.
#ifndef VORNIK_CLI_COMMANDS_INTERRUPT_H
#define VORNIK_CLI_COMMANDS_INTERRUPT_H

namespace Vornik::Cli {

// From now on the first interrupt is only noted. The second one ends the process.
void NoteInterrupts();

bool IsInterrupted();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_INTERRUPT_H
