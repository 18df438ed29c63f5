// A file that is made under another name and takes its own once it is whole.
#pragma once

#include <filesystem>
#include <string>

namespace vorandine::store {

class PartFile {
  public:
    // Makes the empty file PATH.part, which may be read and written by whom the file `source` may,
    // and nobody else. Throws Error(StoreExists) where there is a file called PATH,
    // PATH-journal, which SQLite would take for the new file's, or PATH.part, and Error(ReadOnly)
    // or Error(StoreFailed) where it cannot be made.
    PartFile(const std::string& path, const std::string& source);
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    // Removes the file, with its journal, unless it was kept.
    ~PartFile();

    [[nodiscard]] std::string path() const { return part_.string(); }
    // Gives the file, which nobody has open, the name PATH; on the disk too where the folder can be
    // synced. Throws as the constructor: a file that has come to be there is never replaced.
    void keep();

  private:
    std::filesystem::path target_;
    std::filesystem::path part_;
    bool kept_ = false;
};

} // namespace vorandine::store
