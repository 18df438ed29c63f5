// A row is the fewest lines that leave no quote open.
#include "exchange/Csv.h"

#include "text/Characters.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vorandine::exchange {
namespace {

// A quote that is never closed must not take the rest of the file into memory.
constexpr std::size_t LongestRow = 1U << 20U;
// Nor is each quote of a file that has many to be followed for a mebibyte. Spreadsheets allow some
// 250 line breaks in a cell.
constexpr std::size_t MostLines = 256;
const char* const TooLong = "the row is longer than a mebibyte";

// Bytes 0x80 to 0x9F of that encoding; 0 where it has no character.
constexpr std::array<char32_t, 32> Windows1252High{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::string fromWindows1252(std::string_view bytes) {
    std::u32string characters;
    characters.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool high = byte >= 0x80 && byte < 0xA0;
        characters.push_back(high ? Windows1252High[byte - 0x80U] : byte);
    }
    return text::Encode(characters);
}

} // namespace

bool CsvRow::empty() const {
    return !fault && std::all_of(cells.begin(), cells.end(),
                                 [](const std::string& cell) { return cell.empty(); });
}

CsvReader::CsvReader(std::istream& in, char separator, Encoding encoding)
    : lines_(in, LongestRow), separator_(separator), encoding_(encoding) {}

bool CsvReader::have(std::size_t at) {
    if (at < ahead_.size())
        return true;
    std::string line;
    if (!lines_.next(line))
        return false;
    if (passed_ + ahead_.size() == 0 && line.starts_with("\xEF\xBB\xBF"))
        line.erase(0, 3);
    if (line.ends_with('\r'))
        line.pop_back();
    if (lines_.tooLong())
        line.resize(LongestRow + 1); // and so is its row
    ahead_.push_back(std::move(line));
    return true;
}

bool CsvReader::next(CsvRow& row) {
    row = {};
    for (; used_ > 0; --used_, ++passed_)
        ahead_.pop_front();
    if (!have(0))
        return false;
    row.line = passed_ + 1;
    row.fault = join(row);
    if (row.fault)
        used_ = 1; // what a quote too many has taken in are rows of their own
    else
        finish(row);
    if (width_ == 0 && !row.fault)
        width_ = row.cells.size();
    return true;
}

std::optional<std::string> CsvReader::join(CsvRow& row) {
    text_ = std::move(ahead_.front());
    used_ = 1;
    if (text_.size() > LongestRow)
        return TooLong;
    // Only what came last is split: lines are many where a quote was forgotten.
    for (std::size_t from = 0; !split(row, from) && !row.fault;) {
        from = text_.size();
        text_.push_back('\n');
        if (used_ == MostLines || text_.size() > LongestRow || !have(used_))
            return "a quote that opens here is never closed";
        text_ += ahead_[used_++];
    }
    if (text_.size() > LongestRow)
        return TooLong;
    if (!row.fault && used_ > 1 && takesInRows(row))
        return "a quote that opens here takes in the rows up to line " +
               std::to_string(passed_ + used_);
    return std::exchange(row.fault, std::nullopt);
}

bool CsvReader::takesInRows(const CsvRow& row) const {
    const auto looksLikeARow = [this](const std::string& line) {
        return static_cast<std::size_t>(std::count(line.begin(), line.end(), separator_)) + 1 ==
               width_;
    };
    const auto first = ahead_.begin() + 1;
    return width_ > 1 &&
           (row.cells.size() != width_ ||
            std::all_of(first, ahead_.begin() + static_cast<std::ptrdiff_t>(used_), looksLikeARow));
}

bool CsvReader::split(CsvRow& row, std::size_t from) const {
    bool quoted = from > 0;
    bool begins = !quoted; // a quote would open the cell
    if (begins)
        row.cells.emplace_back();
    for (std::size_t i = from; i < text_.size(); ++i) {
        std::string& cell = row.cells.back();
        const char c = text_[i];
        if (quoted) {
            if (c != '"') {
                cell += c;
            } else if (i + 1 < text_.size() && text_[i + 1] == '"') {
                cell += '"';
                ++i;
            } else {
                quoted = false;
                if (i + 1 < text_.size() && text_[i + 1] != separator_)
                    row.fault = "something stands behind a closing quote";
            }
        } else if (c == separator_) {
            row.cells.emplace_back();
            begins = true;
            continue;
        } else if (c == '"' && begins) {
            quoted = true;
        } else {
            cell += c;
        }
        begins = false;
    }
    return !quoted;
}

void CsvReader::finish(CsvRow& row) const {
    for (std::size_t i = 0; i < row.cells.size() && !row.fault; ++i) {
        std::string& cell = row.cells[i];
        if (encoding_ == Encoding::Windows1252)
            cell = fromWindows1252(cell);
        for (char& c : cell)
            if (c == '\n' || c == '\r' || c == '\t')
                c = ' ';
        cell = text::Trim(cell);
        if (!text::IsPlain(cell)) {
            row.fault = "the cell is not UTF-8 or holds a control character; if a spreadsheet "
                        "under Windows wrote the file, give --encoding windows-1252";
            row.faultColumn = i + 1;
        }
    }
}

} // namespace vorandine::exchange
