// The line is checked to be plain text as a whole, so that the pieces need no check each.
#include "exchange/ExchangeLine.h"

#include "exchange/RecordJson.h"
#include "records/Layout.h"
#include "text/Characters.h"

#include <charconv>
#include <cstring>

namespace vorandine::exchange {
namespace {

class Reader {
  public:
    explicit Reader(std::string_view line) : at_(line.data()), end_(at_ + line.size()) {}

    [[nodiscard]] bool pass(std::string_view expected) noexcept {
        if (left() < expected.size() || std::memcmp(at_, expected.data(), expected.size()) != 0)
            return false;
        at_ += expected.size();
        return true;
    }

    [[nodiscard]] bool pass(char expected) noexcept {
        if (at_ == end_ || *at_ != expected)
            return false;
        ++at_;
        return true;
    }

    // What lies before the next quote, which is passed; a backslash is left to others.
    [[nodiscard]] bool text(std::string_view& read) noexcept {
        const char* const from = at_;
        while (at_ != end_ && *at_ != '"' && *at_ != '\\')
            ++at_;
        if (at_ == end_ || *at_ != '"')
            return false;
        read = {from, static_cast<std::size_t>(at_ - from)};
        ++at_;
        return true;
    }

    // In its one form without leading zeros.
    [[nodiscard]] bool number(int& read) noexcept {
        if (at_ == end_ || *at_ < '1' || *at_ > '9')
            return false;
        const auto [rest, error] = std::from_chars(at_, end_, read);
        at_ = rest;
        return error == std::errc();
    }

    [[nodiscard]] bool atEnd() const noexcept { return at_ == end_; }

  private:
    const char* at_;
    const char* end_;

    [[nodiscard]] std::size_t left() const noexcept { return static_cast<std::size_t>(end_ - at_); }
};

// One value, or an array of them, behind what `record` holds.
bool readValues(Reader& reader, std::string& record) {
    std::string_view value;
    if (reader.pass('"')) {
        if (!reader.text(value))
            return false;
        record += value;
        return true;
    }
    if (!reader.pass('['))
        return false;
    if (reader.pass(']'))
        return true;
    for (;;) {
        if (!reader.pass('"') || !reader.text(value))
            return false;
        record += value;
        if (reader.pass(']'))
            return true;
        if (!reader.pass(','))
            return false;
        record.push_back(records::ValueMark);
    }
}

// Members up to the closing brace.
bool readMembers(Reader& reader, std::string& record) {
    if (reader.pass('}'))
        return true;
    int last = 0;
    std::size_t end = 0; // of the last attribute that is not empty
    for (int written = 1;;) {
        int attribute = 0;
        if (!reader.pass('"') || !reader.number(attribute) || !reader.pass("\":") ||
            attribute <= last || attribute > records::LastAttribute)
            return false;
        record.append(static_cast<std::size_t>(attribute - written), records::AttributeMark);
        last = written = attribute;
        const std::size_t begin = record.size();
        if (!readValues(reader, record))
            return false;
        if (record.size() > begin)
            end = record.size();
        if (reader.pass('}'))
            break;
        if (!reader.pass(','))
            return false;
    }
    record.resize(end); // a record does not end in empty attributes
    return true;
}

} // namespace

bool readExchangeLine(std::string_view line, ExchangeLine& read) {
    if (!text::IsPlain(line))
        return false;
    Reader reader(line);
    read.record.clear();
    return reader.pass(R"({"file":")") && reader.text(read.file) && reader.pass(R"(,"key":")") &&
           reader.text(read.key) && reader.pass(R"(,"record":{)") &&
           readMembers(reader, read.record) && reader.pass('}') && reader.atEnd();
}

void appendExchangeLine(std::string& line, std::string_view file, std::string_view key,
                        std::string_view record) {
    line += "{\"file\":";
    appendJsonText(line, file);
    line += ",\"key\":";
    appendJsonText(line, key);
    line += ",\"record\":";
    appendJson(line, record);
    line += "}\n";
}

} // namespace vorandine::exchange
