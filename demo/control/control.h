// How tests reach behind the simulated instruments. Exported beside the VISA functions.
#pragma once

/// Executes one command and returns its answer: what was asked for, "" or "error: ...". The text
/// is valid until the next call. Numbers may be hexadecimal (0xBFFF0015); in TEXT, \n \r
/// \t \\ and \xHH stand for the bytes meant.
///
///   reset                         all instruments as at power-on, no faults, nothing recorded
///   instruments INI               the instruments of this text (see instrument_description.h)
///   plug [SERIAL]                 back on the bus; the first instrument when no serial is given
///   unplug [SERIAL]               off the bus: open sessions end with VI_ERROR_CONN_LOST
///   transcript                    the wire since the last clear, a line per event: "> sent",
///                                 "< received" (escaped), "open ADDRESS", "close", "find EXPR",
///                                 "timeout"; recorded from the first command on
///   clear                         empties the transcript
///   calls                         VISA calls so far
///   latency MICROSECONDS          added to every I/O call
///   timeouts immediate|real       whether a reply that never comes is waited for (real)
///   clock stop|MICROSECONDS       stops the instruments' clock, or pushes it forward
///   trigger rising|falling        an edge at the trigger input
///   reference present|absent      the signal at the external reference input
///   ask QUERY                     what the instrument answers, unseen on the wire and whoever has
///                                 locked it
///   error CODE [TEXT]             puts an error into the queue
///   errors endless CODE|normal    a queue that never runs empty, and back
///   condition CODE on|off         an error that stands: reported once per drain of the queue
///   reply QUERY -> TEXT           what the query is answered from now on; nothing: no answer
///   reply QUERY                   the instrument's own answer again
///   attribute CODE status CODE    reading this attribute of a find list fails
///   attribute CODE text TEXT      or yields this text
///   fault N status CODE [slow]    the N-th I/O call from now returns the status. On a time-out the
///                                 message got through and its reply is lost (slow: after the
///                                 session's time-out). With another error nothing reaches the
///                                 wire; a warning comes in place of success
///   fault N vanish                the instrument is unplugged at that call
///   fault N reply TEXT            these bytes come in place of the reply, none added
///   fault N length BYTES          so many bytes come and a line feed
///   fault N endless               a reply without end
///
/// I/O calls are viOpen, viPrintf, viScanf, viQueryf, viRead, viWrite and their kin, each one.
extern "C" const char* klvDemo(const char* command);
