// vorandine-dba create: makes an empty store where there is none.
#include "apps/dba/Commands.h"
#include "store/Store.h"
#include "text/Error.h"

#include <ostream>

namespace vorandine::dba {
namespace {

bool exists(const std::string& url) {
    try {
        static_cast<void>(store::openEngine(url, store::OpenMode::Existing));
        return true;
    } catch (const Error& error) {
        if (error.number() == errors::StoreMissing)
            return false;
        throw;
    }
}

int create(const CommandLine& line, const Console& console) {
    const std::string& url = line.words().front();
    if (exists(url)) {
        console.err << "vorandine-dba: " << url << " exists already\n";
        return CannotRun;
    }
    static_cast<void>(store::openEngine(url, store::OpenMode::Create));
    console.out << "created " << url << '\n';
    return Done;
}

} // namespace

constexpr Command createCommand{"create",
                                "URL",
                                1,
                                1,
                                "make an empty store, which must not exist yet",
                                "",
                                {},
                                "  vorandine-dba create sqlite:agence.vor\n",
                                create};

} // namespace vorandine::dba
