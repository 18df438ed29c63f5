// A wrong name is answered with the right ones.
#include "apps/dba/Opening.h"

#include <algorithm>
#include <pwd.h>
#include <unistd.h>

namespace vorandine::dba {
namespace {

std::string systemUser() {
    const passwd* const user = getpwuid(getuid());
    return user == nullptr ? std::string() : user->pw_name;
}

} // namespace

std::shared_ptr<store::Engine> openStore(const std::string& url, store::OpenMode mode) {
    return store::openEngine(url, mode);
}

std::string pathOf(const std::string& word) {
    return word.starts_with(SqliteScheme) ? word.substr(SqliteScheme.size()) : word;
}

void sign(store::Store& store, const CommandLine& line) {
    const std::string user = line.value(UserOption.name).value_or(systemUser());
    if (user.empty())
        throw UsageError("--user needs a name");
    store.changes().user(user);
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
