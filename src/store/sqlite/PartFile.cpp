// Made exclusively: whatever has the name already, a folder, a link or another program's file, is
// left as it is.
#include "store/sqlite/PartFile.h"

#include "text/Error.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
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

// What is not possible here is left with less: nobody reads the copy who may not read the source.
// Where that has an access list, its bits for the group are no rights of the group.
void giveRightsOf(const std::string& source, int file) {
    struct stat of {};
    struct stat own {};
    if (stat(source.c_str(), &of) != 0 || fstat(file, &own) != 0)
        return;
    constexpr auto SameOwner = static_cast<uid_t>(-1);
    const bool group = getxattr(source.c_str(), "system.posix_acl_access", nullptr, 0) <= 0 &&
                       (of.st_gid == own.st_gid || fchown(file, SameOwner, of.st_gid) == 0);
    const mode_t kept = S_IRWXU | S_IRWXO | (group ? S_IRWXG : 0U);
    static_cast<void>(fchmod(file, (of.st_mode & kept) | S_IRUSR | S_IWUSR));
}

void makeExclusively(const fs::path& path, const std::string& source) {
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0) {
        giveRightsOf(source, file);
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

// Gives errno, 0 where it is done. File systems that cannot do it in one step have a second name
// given, which fails too where there is one of it, and the first taken away.
int renameToFree(const fs::path& from, const fs::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (link(from.c_str(), to.c_str()) != 0)
        return errno;
    unlink(from.c_str());
    return 0;
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

PartFile::PartFile(const std::string& path, const std::string& source) {
    std::error_code error;
    target_ = fs::absolute(path, error);
    if (error || path.empty())
        refuse(errors::StoreFailed, path, "n'a pas de nom qui puisse être utilisé.");
    part_ = with(target_, ".part");
    requireFreeTarget(target_);
    makeExclusively(part_, source);
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
    if (const int failure = renameToFree(part_, target_); failure != 0) {
        requireFreeTarget(target_); // it is likely to be in the way
        refuse(errors::StoreFailed, part_,
               "n'a pas pu prendre son nom : " + std::generic_category().message(failure) + ".");
    }
    kept_ = true;
    syncFolder(target_.parent_path());
}

} // namespace vorandine::store
