// Reading files and their lines.
#include "apps/scenario/Script.h"

#include "text/Characters.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace vorandine::scenario {
namespace {

std::string contents(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::string text;
    if (stream && !std::filesystem::is_directory(path))
        text.assign(std::istreambuf_iterator<char>(stream), {});
    else
        stream.setstate(std::ios::failbit);
    if (!stream)
        throw std::runtime_error("cannot read " + path.string());
    return text;
}

void requireUtf8(const std::string& text, const std::filesystem::path& path) {
    if (text::Encode(text::Decode(text)) != text)
        throw std::runtime_error(path.string() + " is not a UTF-8 text");
}

} // namespace

Script::Script(const std::filesystem::path& file) {
    open(file);
}

void Script::open(const std::filesystem::path& path) {
    File file{path, contents(path)};
    requireUtf8(file.text, path);
    for (const File& including : files_)
        if (std::filesystem::equivalent(including.path, path))
            throw std::runtime_error(path.string() + " includes itself");
    files_.push_back(std::move(file));
}

void Script::include(const std::string& path) {
    open(files_.back().path.parent_path() / path);
}

std::optional<Line> Script::next() {
    while (!files_.empty()) {
        File& file = files_.back();
        if (file.position >= file.text.size()) {
            files_.pop_back();
            continue;
        }
        const std::size_t end = std::min(file.text.find('\n', file.position), file.text.size());
        std::string text = file.text.substr(file.position, end - file.position);
        file.position = end + 1;
        ++file.line;
        if (!text.empty() && text.back() == '\r')
            text.pop_back();
        if (text.find_first_not_of(" \t") != std::string::npos && text.front() != '#')
            return Line{{file.path.string(), file.line}, std::move(text)};
    }
    return std::nullopt;
}

} // namespace vorandine::scenario
