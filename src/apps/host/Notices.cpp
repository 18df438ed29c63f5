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

Notice news(const widgets::Told& told) {
    return {.name = "news",
            .kind = NoticeKind::Told,
            .head = told.text + (told.when.empty() ? "." : " " + told.when + "."),
            .text =
                "Ce que vous voyez ici ne change pas : vos saisies et les siennes seront réunies "
                "quand vous enregistrerez.",
            .button = {}};
}

} // namespace vorandine::host
