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
    failed_ = reasonOf(outcome);
    if (outcome != Stored::Done && outcome != Stored::NotAllowed)
        failed_ += lost;
    ofOthers(others);
}

void FileNotice::ofOthers(const std::string& what) {
    others_ = what;
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
    const std::string change = failed_ + (failed_.empty() || others_.empty() ? "" : " ") + others_;
    label_.Caption(!change.empty() ? change : !detail_.empty() ? detail_ : employers_);
}

} // namespace vorandine::dif
