// vorandine-dba delete: removes one record, once somebody has said so.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"

#include <array>
#include <istream>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> Options{{
    {"--yes", "", "do not ask; needed where standard input is no terminal"},
}};

bool agreed(const CommandLine& line, const Console& console) {
    if (line.has("--yes"))
        return true;
    if (!console.inIsTerminal)
        throw UsageError("nobody is there to be asked: give --yes to delete");
    console.err << "Delete " << line.words()[1] << ' ' << line.words()[2] << "? [y/N] "
                << std::flush;
    std::string answer;
    std::getline(console.in, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

int remove(const CommandLine& line, const Console& console) {
    const std::string& name = line.words()[1];
    const std::string& key = line.words()[2];
    const auto engine = openStore(line.words().front());
    if (!engineFile(*engine, name).read(key)) {
        console.err << "vorandine-dba: there is no record '" << key << "' in " << name << '\n';
        return Findings;
    }
    if (!agreed(line, console)) {
        console.err << "vorandine-dba: nothing was deleted\n";
        return Findings;
    }
    store::Store(engine).OpenFile(name)->DeleteRecord(key);
    console.out << "deleted " << name << ' ' << key << '\n';
    return Done;
}

} // namespace

constexpr Command deleteCommand{
    "delete",
    "URL FILE KEY",
    3,
    3,
    "remove one record",
    "Asks before it does. Where there is no such record, or the answer is no, the exit status\n"
    "is 1.\n",
    Options,
    "  vorandine-dba delete sqlite:agence.vor CONTRAT '00012*1'\n"
    "  vorandine-dba delete --yes sqlite:agence.vor DIFAIDANT 00012PSD\n",
    remove,
};

} // namespace vorandine::dba
