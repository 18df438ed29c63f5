// The lines of a scenario, in the order in which they are played, included files among them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::scenario {

// Where a line stands, as failures tell it.
struct Location {
    std::string file;
    std::size_t line = 0;
};

struct Line {
    Location location;
    std::string text;
};

// Lines that hold no command are passed over. Files are read whole when they are named, and throw
// std::runtime_error if they can't be read or are no UTF-8.
class Script {
  public:
    explicit Script(const std::filesystem::path& file);

    // The next line; none at the end.
    std::optional<Line> next();
    // Goes on with `path`, taken from the folder of the file being played, and then comes back.
    // Throws std::runtime_error too where a file would include itself.
    void include(const std::string& path);

  private:
    struct File {
        std::filesystem::path path;
        std::string text;
        std::size_t position = 0;
        std::size_t line = 0;
    };
    std::vector<File> files_; // the innermost last

    void open(const std::filesystem::path& path);
};

} // namespace vorandine::scenario
