#pragma once

#include "aledb/ale_dbase.h"

namespace koral {

// Brings a record into the shape every load hands on and every save writes: texts cleaned to
// their character sets, channel references within maxChannel, enumerated bytes within their
// ranges (out-of-range bytes take fixed defaults, silently), and member slots and automatic
// dials that name no text (an empty or missing directory entry, a message of blanks only)
// name nothing. A member slot of the net's own self address stays, even while that is empty.
void normalizeAleDatabase(ale_dbase& db, int maxChannel);

// The all-call channel survives only when it is one of the net's scanned channels within
// 1..maxChannel; the scanned set keeps channels 1..maxChannel only.
void normalizeNetChannels(ale_net& net, int maxChannel);

} // namespace koral
