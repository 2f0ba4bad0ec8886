// The Sessions Log printouts: the histogram with the figures beside it
// (mnuPrintHistogram) and the included sessions' values (mnuPrintRawData),
// each under "Ravelton Sessions Log for " and the player's name, the date
// and the log's file name. The histogram prints what the view figured for
// the screen; the raw data streams the log again, one record at a time, so
// a log of any length prints without being loaded.
//
// What must stay true:
// - The raw data pages hold kRawRowsPerPage rows of kRawColumns sessions,
//   down each column first, under the heading repeated on every page; the
//   page count the confirmation promises is the count of pages printed
//   (the document fixes its lines per page).
// - Values print in the printer's gain or loss colour by their sign.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/print_document.h"
#include "stats/sessions_stats.h"

struct Game;

constexpr int kRawRowsPerPage = 40;
constexpr int kRawColumns = 3;

// The request the view's state makes for the log at `path`, with the
// range boxes as typed.
SessionsRequest SessionsRequestOf(const Game& game, std::string path);

// "Ravelton Sessions Log for " + name, with the classes, the histogram as
// a picture, the range boxes and the fifteen results.
PrintDocument SessionsHistogramPrintout(const Game& game, const SessionsFigures& f,
                                        std::string_view name, std::string_view logPath,
                                        const CalendarDate& today);
// The pages a raw data printout of `sessions` sessions takes.
std::int64_t RawDataPages(std::int64_t sessions);
// The included sessions of the request's log: number and value. `error`
// is set when the log cannot be read.
PrintDocument SessionsRawDataPrintout(const Game& game, const SessionsRequest& rq,
                                      std::string_view name, const CalendarDate& today,
                                      std::string& error);

// mnuPrintHistogram and mnuPrintRawData of the player shown, with the
// figures the view holds: "There are no sessions selected for printing."
// when none is included; the raw data first confirms its page count.
// False when nothing was printed.
bool PrintSessionsHistogram(Game& game, const SessionsRequest& rq, const SessionsFigures& f);
bool PrintSessionsRawData(Game& game, const SessionsRequest& rq, const SessionsFigures& f);
