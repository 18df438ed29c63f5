// Whatever is no clear yes is a no.
#include "apps/dba/Agreement.h"

#include "text/Characters.h"

#include <istream>
#include <ostream>

namespace vorandine::dba {

bool agreed(const CommandLine& line, const Console& console, const std::string& question) {
    if (line.has(YesOption.name))
        return true;
    if (!console.inIsTerminal)
        throw UsageError("nobody is there to be asked: give --yes to go ahead");
    console.err << text::Printable(question) << " [y/N] " << std::flush;
    std::string answer;
    std::getline(console.in, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

} // namespace vorandine::dba
