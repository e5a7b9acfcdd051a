// The process that the program runs in, made safe before anything is opened.
#pragma once

namespace tarvik {

/// A reader of our output that goes away, or a file that reaches its limit, becomes a failed write instead of
/// the end of the program: the tool must be powered down in any case. Standard streams that were handed over
/// closed are filled, or the serial device and the run file would take their numbers and get our messages.
void secureProcess();

/// False when something of the standard output did not reach its end (a full disk, a closed pipe); says so on
/// standard error.
[[nodiscard]] bool resultsDelivered();

} // namespace tarvik
