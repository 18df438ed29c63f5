// A wrong name is answered with the right ones.
#include "apps/dba/Opening.h"

#include "apps/dba/CommandLine.h"

#include <algorithm>

namespace vorandine::dba {

std::shared_ptr<store::Engine> openStore(const std::string& url, store::OpenMode mode) {
    return store::openEngine(url, mode);
}

store::EngineFile& engineFile(store::Engine& engine, const std::string& name) {
    const std::vector<std::string> files = engine.files();
    if (std::find(files.begin(), files.end(), name) != files.end())
        return *engine.file(name);
    std::string names;
    for (const std::string& one : files)
        names += ' ' + one;
    throw UsageError("there is no file '" + name + "'; there are" + names);
}

std::vector<std::string> filesOf(store::Engine& engine, std::vector<std::string> words) {
    if (words.empty())
        return engine.files();
    for (const std::string& word : words)
        static_cast<void>(engineFile(engine, word));
    return words;
}

} // namespace vorandine::dba
