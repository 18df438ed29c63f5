// vorandine-dba import: stores the records of JSON Lines files, all of them or none.
#include "apps/dba/Commands.h"
#include "apps/host/Exchange.h"
#include "store/Store.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <list>

namespace vorandine::dba {
namespace {

struct Options {
    store::OpenMode mode = store::OpenMode::Existing;
    std::string url;
    Arguments files;
};

Options read(const Arguments& arguments) {
    Options options;
    Arguments words;
    for (const std::string& word : arguments) {
        if (word == "--create")
            options.mode = store::OpenMode::Create;
        else if (word.starts_with("-") && word != "-")
            throw UsageError("import has no option " + word);
        else
            words.push_back(word);
    }
    if (words.size() < 2)
        throw UsageError("import takes a URL and at least one FILE");
    options.url = words.front();
    options.files.assign(words.begin() + 1, words.end());
    if (std::count(options.files.begin(), options.files.end(), "-") > 1)
        throw UsageError("standard input can be read once only");
    return options;
}

} // namespace

int import(const Arguments& arguments) {
    const Options options = read(arguments);
    std::list<std::ifstream> opened;
    std::vector<host::ImportSource> sources;
    for (const std::string& file : options.files) {
        if (file == "-") {
            sources.push_back({"-", std::cin});
            continue;
        }
        if (!opened.emplace_back(file, std::ios::binary)) {
            std::cerr << "vorandine-dba: cannot read " << file << '\n';
            return CannotRun;
        }
        sources.push_back({file, opened.back()});
    }
    store::Store store(store::openEngine(options.url, options.mode));
    const auto stored = host::importRecords(
        store, sources, [](const std::string& complaint) { std::cerr << complaint << '\n'; });
    if (!stored) {
        std::cerr << "vorandine-dba: nothing was stored\n";
        return WrongData;
    }
    std::cout << *stored << (*stored == 1 ? " record" : " records") << " stored\n";
    return Done;
}

} // namespace vorandine::dba
