// What the tests of the store share: records as one reads them, files in a folder of their own, the
// number and text of an expected Error, and work done without rights.
#pragma once

#include "records/DBARecord.h"
#include "text/Error.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>

namespace store_test {

// A record's text as one reads it: ^ between attributes, ] between values.
inline std::string marks(std::string text) {
    std::replace(text.begin(), text.end(), '^', vorandine::records::AttributeMark);
    std::replace(text.begin(), text.end(), ']', vorandine::records::ValueMark);
    return text;
}

struct Raised {
    std::uint32_t number = 0; // 0: nothing was thrown
    std::string text;
};

inline Raised raisedBy(const std::function<void()>& work) {
    try {
        work();
    } catch (const vorandine::Error& error) {
        return {error.number(), error.what()};
    }
    return {};
}

inline std::uint32_t numberOf(const std::function<void()>& work) {
    return raisedBy(work).number;
}

constexpr unsigned Nobody = 65534;

// Runs `work` in a process without rights on the files made so far; tests may run as root. Gives
// what `work` gives, up to 125.
inline int asNobody(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        if (getuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0))
            _exit(126);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 127;
}

// A folder that goes with all it holds.
class Folder {
  public:
    explicit Folder(const std::filesystem::path& in = std::filesystem::temp_directory_path()) {
        std::random_device random;
        do
            path_ = in / ("vorandine-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_));
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ / name; }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

// The server of the tests, without a schema; tests/CMakeLists.txt has it started.
inline std::string server() {
    const char* const url = std::getenv("VORANDINE_TEST_SERVER");
    if (url == nullptr)
        throw std::runtime_error("no PostgreSQL server: run this by ctest, which starts one");
    return url;
}

// A store of each kind, not yet made. `folder` is of this test alone.
constexpr const char* Kinds[] = {"memory", "sqlite", "postgresql"};
inline std::string urlOf(const std::string& kind, const Folder& folder) {
    if (kind == "postgresql")
        return server() + "#" + folder.path().filename().string();
    return kind == "sqlite" ? "sqlite:" + folder / "base.vor" : "memory:";
}

} // namespace store_test
