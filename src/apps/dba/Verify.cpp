// vorandine-dba verify: whether a store's file is sound to its last byte.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "exchange/Exchange.h"
#include "records/RecordText.h"
#include "store/Changes.h"
#include "text/Error.h"

#include <array>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> Options{{
    {"--json", "", "the outcome as {\"records\":12,\"versions\":3,\"findings\":0}"},
}};

class Verification {
  public:
    Verification(store::Engine& engine, const Console& console)
        : engine_(engine), console_(console), progress_(console, "verified") {}

    void run() {
        try {
            for (const std::string& fault : engine_.faults())
                find(fault);
        } catch (const Error& error) {
            if (error.number() != errors::Damaged)
                throw;
            find("the pages of the file do not hang together");
        }
        for (const std::string& name : engine_.files())
            records_ += read(name, records::isPlainEntry);
        versions_ = read(std::string(store::HistoryFile), store::isPlainVersion);
        progress_.clear();
    }

    int tell(bool json) const {
        if (json)
            console_.out << "{\"records\":" << records_ << ",\"versions\":" << versions_
                         << ",\"findings\":" << findings_ << "}\n";
        else
            console_.out << records_ << (records_ == 1 ? " record" : " records") << " and "
                         << versions_ << (versions_ == 1 ? " version" : " versions")
                         << " can be read, "
                         << (findings_ == 0 ? "the store is sound" : "the store is damaged")
                         << '\n';
        return findings_ == 0 ? Done : Findings;
    }

    void find(const std::string& fault) {
        ++findings_;
        progress_.clear();
        console_.err << "vorandine-dba: " << fault << '\n';
    }

  private:
    store::Engine& engine_;
    const Console& console_;
    Progress progress_;
    std::size_t records_ = 0;
    std::size_t versions_ = 0;
    std::size_t findings_ = 0;

    // How many entries of the engine's file can be read.
    template <class Plain>
    std::size_t read(const std::string& name, const Plain& plain) {
        std::size_t readable = 0;
        store::EngineFile* const file = engine_.file(name);
        if (file == nullptr)
            return 0; // the history of a store of the format before, which may not be written
        try {
            file->scan({}, [&](std::string_view key, std::string_view content) {
                progress_.step();
                if (plain(key, content))
                    ++readable;
                else
                    find(name + ' ' + records::shownKey(key) +
                         " is damaged: it is no readable text");
                return true;
            });
        } catch (const Error& error) {
            if (error.number() != errors::Damaged)
                throw;
            find(name + " cannot be read to its end");
        }
        return readable;
    }
};

int verify(const CommandLine& line, const Console& console) {
    try {
        const auto engine = openStore(SqliteScheme + pathOf(line.words().front()));
        Verification verification(*engine, console);
        engine->consistently([&] { verification.run(); });
        return verification.tell(line.has("--json"));
    } catch (const Error& error) {
        if (error.number() != errors::Damaged)
            throw;
        console.err << "vorandine-dba: " << error.what() << '\n';
        if (line.has("--json"))
            console.out << "{\"records\":0,\"versions\":0,\"findings\":1}\n";
        return Findings;
    }
}

} // namespace

constexpr Command verifyCommand{
    "verify",
    "PATH",
    1,
    1,
    "tell whether the file of a store is sound to its last byte",
    "Looks at the whole file, at every record and at every version of the history. What is wrong\n"
    "is told on standard error, and the exit status is 1. Whether records agree with each other\n"
    "is what check looks for.\n",
    Options,
    "  vorandine-dba verify agence.vor\n"
    "  vorandine-dba verify --json /media/usb/agence-2026-11-23.vor\n",
    verify,
};

} // namespace vorandine::dba
