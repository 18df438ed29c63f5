// The texts of the notice.
#include "dif/FileNotice.h"

namespace vorandine::dif {

void FileNotice::tell(Stored outcome, const std::string& lost) {
    if (outcome == Stored::Done)
        change_ = "";
    else if (outcome == Stored::NotAllowed)
        change_ = "Vous consultez ce dossier : rien n'est modifié. "
                  "Confiez ce changement à qui a le droit d'écrire.";
    else
        change_ = (outcome == Stored::NotRead ? "Fichier illisible, rien n'est modifié. "
                                              : "Le fichier n'a pas pu être écrit. ") +
                  lost;
    show();
}

void FileNotice::ofDetail(const std::string& why) {
    detail_ = why;
    show();
}

void FileNotice::ofEmployers(const std::string& why) {
    employers_ = why;
    show();
}

void FileNotice::show() {
    label_.Caption(!change_.empty() ? change_ : !detail_.empty() ? detail_ : employers_);
}

} // namespace vorandine::dif
