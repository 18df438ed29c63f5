// Tables, paths and the marks of a store.
#include "store/sqlite/SqliteLayout.h"

#include "records/Layout.h"
#include "text/Error.h"

#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace vorandine::store::sqlite {
namespace {

// The smallest page of SQLite, and so its smallest file.
constexpr std::uintmax_t SmallestFile = 512;

// By the beginnings of their names: nfs4, fuse.sshfs; fuseblk is a disk.
constexpr std::string_view NetworkFileSystems[] = {
    "nfs", "cifs", "smb", "ncp", "afs", "coda", "9p", "ceph", "lustre", "gluster", "fuse."};

[[noreturn]] void refuseEmpty(const std::string& path) {
    refuse(errors::NotADatabase, path,
           "n'en est pas une : le fichier est vide. Choisissez un autre chemin, ou créez "
           "la base à cet endroit.");
}

} // namespace

std::vector<std::string> tables() {
    std::vector<std::string> names;
    for (const records::FileLayout& known : records::files())
        names.emplace_back(known.name);
    names.emplace_back(HistoryFile);
    return names;
}

std::string createTable(std::string_view file) {
    return "CREATE TABLE \"" + std::string(file) +
           "\" (cle BLOB PRIMARY KEY, fiche BLOB NOT NULL) WITHOUT ROWID";
}

void refuse(std::uint32_t number, const std::string& path, const std::string& why) {
    throw Error(number, "La base « " + path + " » " + why);
}

// The file is not opened for these checks: closing it again would drop the locks that this process
// may hold on it through another connection.
std::string checkedPath(const std::string& given, OpenMode mode) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(given, error);
    if (error)
        refuse(errors::StoreFailed, given, "n'est pas accessible : " + error.message() + ".");
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    switch (status.type()) {
    case std::filesystem::file_type::not_found:
        if (mode == OpenMode::Existing)
            refuse(errors::StoreMissing, path, "n'existe pas. Vérifiez le chemin, ou créez-la.");
        if (!std::filesystem::is_directory(path.parent_path(), error))
            refuse(errors::ReadOnly, path,
                   "ne peut pas être créée : son dossier n'existe pas. Créez-le d'abord.");
        break;
    case std::filesystem::file_type::regular: {
        const std::uintmax_t size = std::filesystem::file_size(path, error);
        if (!error && size == 0 && mode == OpenMode::Existing)
            refuseEmpty(path);
        // SQLite takes a file of a single byte for an empty one and would write over it.
        if (!error && size > 0 && size < SmallestFile)
            refuse(errors::NotADatabase, path,
                   "n'en est pas une : le fichier est d'une autre nature. Choisissez un autre "
                   "chemin.");
        break;
    }
    case std::filesystem::file_type::none:
        refuse(errors::StoreFailed, path, "n'est pas accessible : " + error.message() + ".");
    default:
        refuse(
            errors::NotADatabase, path,
            "n'en est pas une : ce chemin ne mène pas à un fichier. Choisissez un autre chemin.");
    }
    return path;
}

std::uintmax_t nameCount(const std::string& path) noexcept {
    std::error_code error;
    const std::uintmax_t count = std::filesystem::hard_link_count(path, error);
    return error ? 0 : count;
}

// A line is "36 35 98:0 / /mnt rw,noatime - nfs4 server:/export rw": the device, and behind the
// dash the type.
std::string networkFileSystem(const std::string& path) {
    struct stat file {};
    if (stat(path.c_str(), &file) != 0)
        return {};
    const std::string device =
        ' ' + std::to_string(major(file.st_dev)) + ':' + std::to_string(minor(file.st_dev)) + ' ';
    std::ifstream mounts("/proc/self/mountinfo");
    for (std::string line; std::getline(mounts, line);) {
        const std::size_t dash = line.find(" - ");
        if (line.find(device) == std::string::npos || dash == std::string::npos)
            continue;
        const std::size_t type = dash + 3;
        std::string found = line.substr(type, line.find(' ', type) - type);
        for (const std::string_view network : NetworkFileSystems)
            if (found.starts_with(network))
                return found;
    }
    return {};
}

void requireStore(SqliteDatabase& database) {
    if (database.number("PRAGMA page_count") == 0)
        refuseEmpty(database.path());
    if (database.number("PRAGMA application_id") != ApplicationId)
        refuse(errors::OtherProgram, database.path(),
               "appartient à un autre programme. Choisissez un autre chemin.");
    const std::int64_t version = database.number("PRAGMA user_version");
    if (version != FormatVersion && version != WithoutHistory)
        refuse(errors::OtherVersion, database.path(),
               "est au format " + std::to_string(version) + ", ce programme lit le format " +
                   std::to_string(FormatVersion) +
                   ". Utilisez la version du programme qui l'a écrite.");
}

} // namespace vorandine::store::sqlite
