// Lines that can quote anything.
#include "apps/dba/Console.h"

#include "text/Characters.h"

#include <ostream>

namespace vorandine::dba {

void Console::tell(const std::string& line) const {
    out << text::Printable(line) << '\n';
}

void Console::complain(const std::string& line) const {
    err << "vorandine-dba: " << text::Printable(line) << '\n';
}

} // namespace vorandine::dba
