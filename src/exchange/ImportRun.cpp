// All lines are looked at even when one was wrong, so that a file can be mended in one go; the
// transaction is given up at the end.
#include "exchange/ImportRun.h"

namespace vorandine::exchange {
namespace {

// Ends a transaction whose lines were not all good.
struct GivenUp {};

class WithoutUnchanged {
  public:
    explicit WithoutUnchanged(store::Changes& changes) : changes_(changes) {
        changes_.keepUnchanged(false);
    }
    WithoutUnchanged(const WithoutUnchanged&) = delete;
    WithoutUnchanged& operator=(const WithoutUnchanged&) = delete;
    ~WithoutUnchanged() { changes_.keepUnchanged(true); }

  private:
    store::Changes& changes_;
};

} // namespace

bool ImportRun::isOfTheLine(const Error& error) noexcept {
    switch (error.number()) {
    case errors::TextRefused:
    case errors::KeyRefused:
    case errors::FileUnknown:
        return true;
    default:
        return false;
    }
}

ImportResult ImportRun::run(const std::function<void()>& work) {
    const WithoutUnchanged load(store_.changes());
    try {
        store_.atomically([&] {
            work();
            if (result_.bad > 0 && badLines_ == BadLines::StoreNothing)
                throw GivenUp();
        });
        result_.stored = true;
    } catch (const GivenUp&) { // nothing is stored
    }
    return result_;
}

} // namespace vorandine::exchange
