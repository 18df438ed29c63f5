// vorandine-dba create: makes an empty store where there is none.
#include "apps/dba/Commands.h"
#include "store/Store.h"
#include "text/Error.h"

#include <iostream>

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

} // namespace

int create(const Arguments& arguments) {
    if (arguments.size() != 1)
        throw UsageError("create takes one URL");
    const std::string& url = arguments.front();
    if (exists(url)) {
        std::cerr << "vorandine-dba: " << url << " exists already\n";
        return CannotRun;
    }
    static_cast<void>(store::openEngine(url, store::OpenMode::Create));
    std::cout << "created " << url << '\n';
    return Done;
}

} // namespace vorandine::dba
