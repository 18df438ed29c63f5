// A pipe may be slow, and whoever reads it within a transaction keeps all others from writing.
#include "apps/dba/Input.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace vorandine::dba {
namespace {

namespace fs = std::filesystem;

// A file for this program alone, which has no name any more.
std::fstream unnamedFile() {
    std::error_code error;
    std::string path = fs::temp_directory_path(error) / "vorandine-XXXXXX";
    const int made = error ? -1 : mkstemp(path.data());
    if (made < 0)
        throw std::runtime_error("cannot make a temporary file " + path +
                                 ", TMPDIR can name another folder");
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    unlink(path.c_str());
    close(made);
    return file;
}

} // namespace

Input::Input(const std::string& name, const Console& console) : stream_(&file_) {
    if (name == "-") {
        if (console.inIsFile)
            stream_ = &console.in;
        else
            keep(console.in, name);
        return;
    }
    file_.open(name, std::ios::in | std::ios::binary);
    if (!file_)
        throw std::runtime_error("cannot read " + name);
    std::error_code ignored;
    if (!fs::is_regular_file(name, ignored)) {
        std::fstream pipe = std::move(file_);
        keep(pipe, name);
    }
}

void Input::keep(std::istream& in, const std::string& name) {
    constexpr std::size_t PieceBytes = 1U << 16U;
    file_ = unnamedFile();
    std::array<char, PieceBytes> piece{};
    do {
        in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        file_.write(piece.data(), in.gcount());
    } while (in && file_);
    if (in.bad())
        throw std::runtime_error("cannot read " + name + " to its end");
    if (!file_.flush())
        throw std::runtime_error(
            "there is no room for what " + name +
            " holds in the folder of temporary files; TMPDIR can name another");
    file_.seekg(0);
}

} // namespace vorandine::dba
