// The multi-value record: attributes of several values each, numbered from 1, and the file that it
// may be stored in. A record is a handle: it is moved, never copied by name.
#pragma once

#include "records/ValueList.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::records {

// Where a record is stored, as the record itself asks for it.
class RecordHome {
  public:
    RecordHome() = default;
    RecordHome(const RecordHome&) = delete;
    RecordHome& operator=(const RecordHome&) = delete;
    virtual ~RecordHome() = default;

    // Stores `text`, a record's whole text, under `key`, replacing what was there. Throws
    // Error(ReadHadFailed) where the last read of this key failed for another reason than a
    // missing record: a record that could not be read must not be replaced by what was typed
    // without it. On any error what was stored stays.
    virtual void WriteRecord(const std::string& key, std::string_view text) = 0;

    // The same, and the removal of the record, only if what is stored still is `read`, the text it
    // was read with (none: there was no record), which is looked at in the transaction of the
    // change. Else throws ChangedMeanwhile, and nothing is changed.
    virtual void WriteRecord(const std::string& key, std::string_view text,
                             const std::optional<std::string>& read) = 0;
    virtual void DeleteRecord(const std::string& key, const std::optional<std::string>& read) = 0;
};

// Separators in a record's whole text. None of these bytes ever occurs in UTF-8.
constexpr char AttributeMark = '\xFE'; // between attributes
constexpr char ValueMark = '\xFD';     // between the values of an attribute
constexpr char SubvalueMark = '\xFC';  // in a request's result: between values of one attribute

// Reading: `rec()` is the whole record as one text, `rec(a)` attribute a, `rec(a, v)` its value v.
// What does not exist reads as "".
//
// Writing: `rec() = text` or `rec() = other()` replaces the content and keeps key and file;
// `rec(a) = x`, `rec(a, v) = x`; `rec(a, -1) = x` appends; `rec.Insert(a, v) = x` puts a new value
// before position v. Assigning or inserting past the end extends with empty values, also when x is
// empty. An attribute never set and one with a single empty value have the same text. The whole
// text never ends in empty attributes.
//
// An attribute or value number below 1, save v = -1 where it appends, throws Error(OutOfRange) on
// writing. A value that holds a separator (0xFE, 0xFD), or an attribute's text that holds 0xFE,
// throws Error(TextRefused). After any exception the record is as it was.
//
// Reading, setting, inserting or deleting values 1 to n of an attribute in a loop, in either
// direction, costs a constant amount a value.
//
// Not thread-safe, reading included: values are told apart on first use.
class DBARecord {
  public:
    class Whole;
    class Attribute;
    class Value;
    class Insertion;

    // A free record: empty, bound to no file.
    DBARecord() = default;

    // A record bound to `key` in `file`, with the content `read` that is stored there; empty, where
    // none is.
    DBARecord(std::shared_ptr<RecordHome> file, std::string key, std::optional<std::string> read);

    // `Rec = file.ReadRecord(key)` rebinds Rec; the record given away becomes free and empty.
    DBARecord(DBARecord&&) = default;
    DBARecord& operator=(DBARecord&&) = default;
    // Assigning one named record to another could only alias: say `a() = b()` for the content.
    DBARecord(const DBARecord&) = delete;
    DBARecord& operator=(const DBARecord&) = delete;
    ~DBARecord() = default;

    [[nodiscard]] std::string operator()() const;
    [[nodiscard]] std::string operator()(int a) const;
    [[nodiscard]] std::string operator()(int a, int v) const;
    Whole operator()();
    Attribute operator()(int a);
    Value operator()(int a, int v);
    Insertion Insert(int a, int v);

    // Removes value v of attribute a; later values move up. Nothing happens if there is none.
    void Delete(int a, int v);

    // Number of attributes, empty ones included, up to the last that was read or set.
    [[nodiscard]] int DCount() const;
    // Number of values of attribute a; 0 if its text is empty.
    [[nodiscard]] int DCount(int a) const;

    // Stores the record under its key, in place of what it was read with, or was stored as last.
    // Throws Error(FreeRecord) on a free record, ChangedMeanwhile where something else is stored
    // there now, and what the file throws; the record keeps its content in any case.
    void DBWrite();
    // Likewise, but in place of `stored`, which was found there meanwhile.
    void DBWriteOver(const std::optional<std::string>& stored);
    // Removes what it was read with. Throws as DBWrite.
    void DBDelete();

    [[nodiscard]] const std::string& key() const noexcept { return key_; }

  private:
    // Until something is asked of it, a record stays the text that was read: most records are
    // read for one or two attributes.
    mutable std::string text_;
    mutable std::vector<ValueList> attributes_;
    mutable bool split_ = false;
    std::shared_ptr<RecordHome> file_;
    std::string key_;
    std::optional<std::string> read_; // what is stored, as far as this record knows

    [[nodiscard]] RecordHome& home() const;
    void split() const;
    [[nodiscard]] const ValueList* find(int a) const;
    ValueList& reach(int a);
    void setText(std::string text);
    void setAttribute(int a, std::string text);
    void setValue(int a, int v, std::string value);
    void insertValue(int a, int v, std::string value);
};

// What the writing forms above give: short-lived, never kept. Each reads as the text it stands for.
class DBARecord::Whole {
  public:
    Whole(const Whole&) = delete;
    Whole& operator=(const Whole& other) { return *this = std::string(other); }
    Whole& operator=(std::string text);
    operator std::string() const { return std::as_const(record_)(); }

  private:
    friend class DBARecord;
    explicit Whole(DBARecord& record) : record_(record) {}
    DBARecord& record_;
};

class DBARecord::Attribute {
  public:
    Attribute(const Attribute&) = delete;
    Attribute& operator=(const Attribute& other) { return *this = std::string(other); }
    Attribute& operator=(std::string text);
    operator std::string() const { return std::as_const(record_)(a_); }

  private:
    friend class DBARecord;
    Attribute(DBARecord& record, int a) : record_(record), a_(a) {}
    DBARecord& record_;
    int a_;
};

class DBARecord::Value {
  public:
    Value(const Value&) = delete;
    Value& operator=(const Value& other) { return *this = std::string(other); }
    Value& operator=(std::string value);
    operator std::string() const { return std::as_const(record_)(a_, v_); }

  private:
    friend class DBARecord;
    Value(DBARecord& record, int a, int v) : record_(record), a_(a), v_(v) {}
    DBARecord& record_;
    int a_;
    int v_;
};

class DBARecord::Insertion {
  public:
    Insertion(const Insertion&) = delete;
    Insertion& operator=(const Insertion&) = delete;
    Insertion& operator=(std::string value);

  private:
    friend class DBARecord;
    Insertion(DBARecord& record, int a, int v) : record_(record), a_(a), v_(v) {}
    DBARecord& record_;
    int a_;
    int v_;
};

// Comparing without naming a std::string first: `rec(1) == "D"`.
inline bool operator==(const DBARecord::Whole& a, std::string_view b) {
    return std::string(a) == b;
}
inline bool operator==(const DBARecord::Attribute& a, std::string_view b) {
    return std::string(a) == b;
}
inline bool operator==(const DBARecord::Value& a, std::string_view b) {
    return std::string(a) == b;
}

} // namespace vorandine::records
