// The subjects of check, one function each. Each tells what it finds in the order in which it meets
// it, and throws what the engine throws.
#pragma once

#include "apps/dba/check/Findings.h"
#include "apps/dba/check/Known.h"
#include "store/Engine.h"

#include <functional>

namespace vorandine::dba {

// Every record of every file against its layout: readable, lists of one length, dates, numbers and
// codes as they must be. `step` is called for each record.
void checkLayouts(store::Engine& engine, const Known& known, const TellFinding& tell,
                  const std::function<void()>& step);

// Contracts against caregivers and employers, dates that belong together, lines of pay and ledgers
// against contracts, caregivers' codes against each other.
void checkReferences(store::Engine& engine, const Known& known, const TellFinding& tell);

// The balances of the ledgers, and their lines against the trainings that count for the D.I.F.
void checkLedgers(store::Engine& engine, const Known& known, const TellFinding& tell);

} // namespace vorandine::dba
