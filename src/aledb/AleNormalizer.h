#pragma once

#include "aledb/ale_dbase.h"

namespace koral {

// Brings a record into the shape every load hands on and every save writes: texts cleaned to
// their character sets, channel references within maxChannel, enumerated bytes within their
// ranges (out-of-range bytes take fixed defaults, silently). Member slots are left alone.
void normalizeAleDatabase(ale_dbase& db, int maxChannel);

// The all-call channel survives only when it is one of the net's scanned channels within
// 1..maxChannel; the scanned set keeps channels 1..maxChannel only.
void normalizeNetChannels(ale_net& net, int maxChannel);

} // namespace koral
