#ifndef KTXSAMPLE_H
#define KTXSAMPLE_H

#include <orvet/orvet.h>

// The commands of the sample tool, each in a source of its own. A command prints for the operator, and gives
// the tool's exit value: 0 when all went well, 1 when the work could not be done, or not whole.

/// "-cmd domains -file RESULT": the domains of a scan result file, with their targets.
int show_domains(const orvet::input_parms & ip);

/// "-cmd records -obj agents|profiles|users -file FILE": the records of an input file of that kind.
int show_records(const orvet::input_parms & ip);

/// "-cmd listing [-obj NAME] [-rcmd BASE]": what Brodan says about its targets and the object of that global
/// name. Without "-rcmd" the `brod` on the PATH answers; "dummy DIRECTORY" answers from canned files. The
/// variable KTXRECORD names a directory to record the answers in, as such files.
int ask_brodan(const orvet::input_parms & ip);

/// "-cmd server -dir DIRECTORY [-srv NAME]": the servers of the brod.cfg in that directory; makes the one of
/// that name the first.
int choose_server(const orvet::input_parms & ip);

/// "-explain NUMBER": what the message or the code means, and what to do.
int explain_number(const char * number);

// What the commands ask of the terminal: 1 is standard output, 2 standard error.

/// True when the stream goes to a terminal, so that colour and a progress display make sense.
bool is_terminal(int descriptor);
/// Columns to fill: COLUMNS, or 100 when it does not say.
unsigned terminal_width();

#endif
