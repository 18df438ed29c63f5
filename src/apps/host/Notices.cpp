// The texts of the notices.
#include "apps/host/Notices.h"

namespace vorandine::host {

Notice consultation() {
    return {.name = "consultation",
            .kind = NoticeKind::Locked,
            .head = "Consultation seule.",
            .text =
                "Vous pouvez lire ce dossier ; ce que vous y changeriez ne serait pas enregistré.",
            .button = {}};
}

} // namespace vorandine::host
