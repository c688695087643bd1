// The terminal side of the host: waking a sleeping program, Ctrl-C, and what standard error is.
#pragma once

namespace discwright::host {

// A flag that a sleeping thread waits for. Set may be called from any thread.
void SetWakeUp();
// Sleeps until SetWakeUp or the first Ctrl-C since the last call, at most the given time; 0 only looks.
void WaitForWakeUp(int milliseconds);

// From now on Ctrl-C (or a request to terminate) only counts; see below.
void CatchInterrupts();
// How often the user has pressed Ctrl-C since CatchInterrupts.
int InterruptCount();

bool StandardErrorIsTerminal();
// Columns of the terminal; 80 when unknown.
int TerminalWidth();

}  // namespace discwright::host
