// Runs a request on a file of any engine.
#pragma once

#include "records/DBARecord.h"
#include "store/Engine.h"
#include "store/Request.h"

namespace vorandine::store {

// The keys outside which no record can satisfy the request's conditions on attribute 0.
[[nodiscard]] KeyRange keyRange(const Request& request);

// The result record: one attribute a row, one value a wanted attribute, several values of a stored
// attribute joined by records::SubvalueMark. Throws what the engine throws, and Error(Damaged)
// where a wanted attribute is no plain text.
[[nodiscard]] records::DBARecord select(const Request& request, EngineFile& file);

} // namespace vorandine::store
