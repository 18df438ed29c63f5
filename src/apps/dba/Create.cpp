// vorandine-dba create: makes an empty store where there is none.
#include "apps/dba/Commands.h"
#include "store/Store.h"
#include "text/Error.h"

namespace vorandine::dba {
namespace {

bool exists(const std::string& url) {
    try {
        static_cast<void>(store::openEngine(url, store::OpenMode::Existing));
        return true;
    } catch (const Error& error) {
        // What is no store is told by the making of one, which takes an empty file.
        if (error.number() == errors::StoreMissing || error.number() == errors::NotADatabase)
            return false;
        throw;
    }
}

int create(const CommandLine& line, const Console& console) {
    const std::string& url = line.words().front();
    if (exists(url)) {
        console.complain(url + " exists already");
        return CannotRun;
    }
    static_cast<void>(store::openEngine(url, store::OpenMode::Create));
    console.tell("created " + url);
    return Done;
}

} // namespace

constexpr Command createCommand{"create",
                                "URL",
                                1,
                                1,
                                "make an empty store, which must not exist yet",
                                "The file is for its owner alone to read and write; docs/store.md "
                                "tells how to share it.\n",
                                {},
                                "  vorandine-dba create sqlite:agence.vor\n",
                                create,
                                true};

} // namespace vorandine::dba
