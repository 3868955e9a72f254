// The market-data service as its callers know it: plain C functions over one service directory.
//
// Conventions. A status is 0 or positive for success, else one of the QL_ codes; sizes and counts
// are returned as the positive value itself. Texts are single-byte buffers owned by the caller;
// symbols passed in end in a zero byte or in blanks. Output buffers are filled with blanks by the
// caller, at the size that the QLget...Size functions name: a function writes its text from the
// start, one zero byte behind it, and leaves the rest as it was. Truth is -1, falsehood 0.
// Market days count from 1. Dates are serials (0 is 30 December 1899).
// One service is open at a time; all calls come from one thread.
// What other programs store while it is open shows with the next QLgetMaxDays and not before, so
// that a buffer of QLgetMaxNumDays + 1 elements stays large enough until the calendar is read
// again. FNU files are followed by every call that lists, finds or fetches an issue.
#pragma once

#include <cstdint>

extern "C" {

// NOLINTBEGIN(readability-identifier-naming): the prefix of the functions, as C callers know it
inline constexpr std::int32_t QL_NO_DATABASE = -1;       ///< unable to open database file
inline constexpr std::int32_t QL_DATABASE_CORRUPT = -2;  ///< database file corrupt
inline constexpr std::int32_t QL_BAD_INI = -3;           ///< bad INI file
inline constexpr std::int32_t QL_BAD_SYMBOLS = -4;       ///< bad symbols file
inline constexpr std::int32_t QL_NO_SUCH_ISSUE = -5;     ///< no such issue
inline constexpr std::int32_t QL_ISSUE_CORRUPT = -6;     ///< issue corrupt
inline constexpr std::int32_t QL_SYMBOLS_MISMATCH = -7;  ///< symbols file-database mismatch
inline constexpr std::int32_t QL_OUT_OF_BOUNDS = -8;     ///< index out of bounds
inline constexpr std::int32_t QL_GENERAL_FAILURE = -99;  ///< general failure
inline constexpr std::int32_t QL_SYSTEM_FAILURE = -999;  ///< system failure
// NOLINTEND(readability-identifier-naming)

/// Names the service directory that the next QLopen opens. Without it QLopen takes
/// $QUOTELINE_DIR, else $XDG_DATA_HOME/quoteline (~/.local/share/quoteline).
void QLsetDirectory(const char* directory);

std::int32_t QLopen();            ///< opens the service (again, when open); reads its FNU files
std::int32_t QLclose();           ///< releases it; harmless when it is not open
std::int32_t QLrebuildSymbols();  ///< makes the symbol index anew from the database, and opens

std::int32_t QLgetPathSize();                ///< characters of a path buffer, terminator included
std::int32_t QLgetQLDir(char* path);         ///< the service directory
std::int32_t QLgetMaxDays();                 ///< entries of the market calendar
std::int32_t QLgetMaxNumDays();              ///< highest day number of histories
std::int32_t QLgetNumDays();                 ///< market days held; the same as QLgetMaxNumDays
std::int32_t QLgetJulian(std::int32_t day);  ///< date serial of a market day; -8 outside
std::int32_t QLgetMarketDay(std::int32_t serial);  ///< day of a date, -8 when it is no market day

std::int32_t QLgetSymSize();    ///< characters of a symbol buffer, terminator included
std::int32_t QLgetNameSize();   ///< characters of a name buffer, terminator included
std::int32_t QLgetNumSyms();    ///< number of issues
std::int32_t QLgetIssueIter();  ///< a new iteration over all issues, ascending by symbol
std::int16_t QLissueNext(std::int32_t iterator, char* symbol);  ///< -1 and the next symbol, else 0
std::int32_t QLcloseIssueIter(std::int32_t iterator);

std::int16_t QLisQLIssue(const char* symbol);                      ///< -1: an issue of the service
std::int32_t QLgetIssueName(const char* symbol, char* name);       ///< its name, or its symbol
std::int32_t QLgetStartDateBySym(const char* symbol);              ///< first day with a price, or 0
std::int32_t QLgetMaxDaysBySym(const char* symbol);                ///< last day with a price, or 0
std::int32_t QLgetIssue(const char* symbol, float* element_zero);  ///< fills elements start to last

}  // extern "C"
