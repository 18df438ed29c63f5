// The texts of the notice.
#include "dif/FileNotice.h"

namespace vorandine::dif {

namespace {

const char* reasonOf(Stored outcome) {
    switch (outcome) {
    case Stored::NotRead:
        return "Fichier illisible, rien n'est modifié. ";
    case Stored::NotWritten:
        return "Le fichier n'a pas pu être écrit. ";
    case Stored::NotAllowed:
        return "Vous consultez ce dossier : rien n'est modifié. Confiez ce changement à qui a le "
               "droit d'écrire.";
    case Stored::LineGone:
        return "La ligne n'y est plus telle quelle, rien n'est modifié. ";
    case Stored::Done:
        break;
    }
    return "";
}

} // namespace

void FileNotice::tell(Stored outcome, const std::string& lost, const std::string& others) {
    change_ = others;
    if (outcome != Stored::Done)
        change_ += (others.empty() ? "" : " ") + std::string(reasonOf(outcome)) +
                   (outcome == Stored::NotAllowed ? "" : lost);
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
