// Made exclusively: whatever has the name already, a folder, a link or another program's file, is
// left as it is.
#include "store/sqlite/PartFile.h"

#include "text/Error.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace vorandine::store {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(std::uint32_t number, const fs::path& path, const std::string& why) {
    throw Error(number, "Le fichier « " + path.string() + " » " + why);
}

fs::path with(const fs::path& path, const char* ending) {
    fs::path longer = path;
    longer += ending;
    return longer;
}

void requireFree(const fs::path& path, const std::string& advice) {
    std::error_code error;
    const fs::file_type type = fs::symlink_status(path, error).type();
    if (type == fs::file_type::none)
        refuse(errors::StoreFailed, path, "n'est pas accessible : " + error.message() + ".");
    if (type != fs::file_type::not_found)
        refuse(errors::StoreExists, path, "existe déjà : il n'est pas remplacé. " + advice);
}

void requireFreeTarget(const fs::path& target) {
    requireFree(target, "Choisissez un autre nom, ou effacez-le d'abord.");
    requireFree(with(target, "-journal"), "Il est d'une ancienne base de ce nom, et rendrait la "
                                          "nouvelle illisible. Écartez-le d'abord.");
}

void makeExclusively(const fs::path& path) {
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    if (file >= 0) {
        close(file);
        return;
    }
    switch (errno) {
    case EEXIST:
        refuse(errors::StoreExists, path,
               "existe déjà. Si aucune autre copie n'est en cours, effacez-le d'abord : il vient "
               "d'une copie interrompue.");
    case ENOENT:
        refuse(errors::ReadOnly, path, "ne peut pas être créé : son dossier n'existe pas.");
    default:
        refuse(errors::ReadOnly, path,
               "ne peut pas être créé : " + std::generic_category().message(errno) + ".");
    }
}

// A name that was given must survive a power cut as the content does.
void syncFolder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

PartFile::PartFile(const std::string& path) {
    std::error_code error;
    target_ = fs::absolute(path, error);
    if (error || path.empty())
        refuse(errors::StoreFailed, path, "n'a pas de nom qui puisse être utilisé.");
    part_ = with(target_, ".part");
    requireFreeTarget(target_);
    makeExclusively(part_);
}

PartFile::~PartFile() {
    if (kept_)
        return;
    std::error_code ignored;
    fs::remove(part_, ignored);
    fs::remove(with(part_, "-journal"), ignored);
}

void PartFile::keep() {
    requireFreeTarget(target_);
    std::error_code error;
    fs::rename(part_, target_, error);
    if (error)
        refuse(errors::StoreFailed, part_, "n'a pas pu prendre son nom : " + error.message() + ".");
    kept_ = true;
    syncFolder(target_.parent_path());
}

} // namespace vorandine::store
