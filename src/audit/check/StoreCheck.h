// The check of a whole store: everything in it that does not agree with itself.
#pragma once

#include "audit/check/Findings.h"
#include "store/Engine.h"

#include <functional>

namespace vorandine::audit {

// Reads all files once and tells each finding as it is met; `step` is called for each record.
// Changes nothing. To be run within Engine::consistently, so that all files are seen in one state.
// Throws what the engine and both functions throw.
void checkStore(store::Engine& engine, const TellFinding& tell, const std::function<void()>& step);

} // namespace vorandine::audit
