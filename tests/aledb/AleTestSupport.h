#pragma once

// Helpers that build ALE programmes for the tests.

#include "aledb/ale_dbase.h"

#include "ProfileTestFiles.h"

#include <QMetaType>

#include <functional>
#include <initializer_list>
#include <string_view>

namespace koral::test {

using AleSetup = std::function<void(AleProgramme&)>;

// A programme as the radio would hold it after a reset: options at their defaults, no nets.
AleProgramme emptyProgramme();

void setNet(AleProgramme& p, int netNumber, std::string_view name, std::string_view self,
            std::initializer_list<int> scanned);
void setDirectory(AleProgramme& p, int index, std::string_view address);
void setMessage(AleProgramme& p, int index, std::string_view text);

} // namespace koral::test

Q_DECLARE_METATYPE(koral::test::AleSetup)
