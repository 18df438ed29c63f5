// vorandine-dba backup: copies a store to a new file while programs go on using it.
#include "apps/dba/Commands.h"
#include "apps/dba/Interruption.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "store/Upkeep.h"
#include "text/Error.h"

namespace vorandine::dba {
namespace {

int backup(const CommandLine& line, const Console& console) {
    const std::string path = pathOf(line.words()[1]);
    const auto engine = openStore(line.words().front());
    store::Upkeep* const upkeep = store::upkeepOf(*engine);
    if (upkeep == nullptr)
        throw Error(errors::StoreFailed,
                    "Cette base n'est pas dans un fichier qui puisse être copié. Exportez-la.");
    const Interruption interruption;
    Progress progress(console, "copied", "pages");
    upkeep->backUp(path, [&](std::size_t pages) {
        interruption.check();
        progress.reach(pages);
    });
    progress.clear();
    console.tell("backed up " + line.words().front() + " to " + path);
    return Done;
}

} // namespace

constexpr Command backupCommand{
    "backup",
    "URL PATH",
    2,
    2,
    "copy a store, history included, to a new file while programs use it",
    "The copy shows one state of the store and is a store itself: sqlite:PATH. PATH must not\n"
    "exist yet; while the copy grows it is called PATH.part, which goes where the backup fails or\n"
    "is ended, and stays behind after a kill or a power cut. Who may read and write the copy is "
    "as\n"
    "for the store. Programs that write go on; those that write without a pause wait at last.\n",
    {},
    "  vorandine-dba backup sqlite:agence.vor /media/usb/agence-$(date +%F).vor\n"
    "  vorandine-dba backup sqlite:agence.vor copie.vor && vorandine-dba verify copie.vor\n",
    backup,
    true,
};

} // namespace vorandine::dba
