// The events log printout (mnuPrint of the viewer): every line of the log,
// read through its index a block at a time, under the heading, the date
// and the log's file name, in the viewer's colours: session and roll lines
// in the printer's blue, the rest black.
#pragma once

#include "core/print_document.h"

struct Game;

// "Ravelton Events Log": the whole log as lines; error is set (and the
// document holds only the heading) when the log cannot be read.
PrintDocument EventsLogPrintout(Game& game, const CalendarDate& today, std::string& error);
// mnuPrint: refuses an empty log with "There are no logged events to
// print."; false when nothing was printed.
bool PrintEventsLog(Game& game);
