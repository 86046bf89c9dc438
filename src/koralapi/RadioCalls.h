#pragma once

// Calls that ask the radio one thing and wait for the answer (bounded by the reply bound).
// 1 on success, 0 on failure (nothing written to the output then).

#include "koralapi/MessageEngine.h"
#include "koralapi/RadioRecords.h"

namespace koral {

int ReadProgramWord(MessageEngine* engine, unsigned char* word);
// The current channel's 13-byte record, frequencies in host order.
int ReadCurrentChannel(MessageEngine* engine, channel* record);
// Programs channel `number` (1..200) with the record (host order); waits for the radio.
int ProgramChannelNumberN(MessageEngine* engine, const channel* record, int number);
// The control-head software version: 8 bytes, zero padded (e.g. "03.100").
int ReadSoftwareVersion(MessageEngine* engine, unsigned char* text);
// The radio's software version: 8 bytes, zero padded (e.g. "03.8194").
int ReadRadioSoftwareVersion(MessageEngine* engine, unsigned char* text);

} // namespace koral
