// What engines do alike, if they have no better way.
#include "store/Engine.h"

#include "text/Error.h"

namespace vorandine::store {

EngineFile& Engine::existing(const std::string& name) {
    if (EngineFile* const found = file(name))
        return *found;
    throw Error(errors::FileUnknown, "Le fichier « " + name + " » n'existe pas dans cette base.");
}

std::vector<std::optional<std::string>> Engine::readMany(const std::vector<Place>& places) {
    std::vector<std::optional<std::string>> records;
    records.reserve(places.size());
    for (const Place& place : places)
        records.push_back(existing(place.file).read(place.key));
    return records;
}

} // namespace vorandine::store
