// Walking over the records of a file that can be read.
#pragma once

#include "data/DBARecord.h"
#include "store/Engine.h"
#include "store/RecordText.h"
#include "text/Characters.h"

#include <string>

namespace vorandine::dba {

// Calls `look` with each record of the file, in order of their keys; those that are no plain text
// are passed over. `look` may read other files.
template <class Look>
void eachRecord(store::Engine& engine, const std::string& file, const Look& look) {
    engine.file(file)->scan({}, [&](std::string_view key, std::string_view text) {
        if (text::IsPlain(key) && store::isPlainRecord(text))
            look(data::DBARecord(nullptr, std::string(key), std::string(text)));
        return true;
    });
}

} // namespace vorandine::dba
