// The record: splitting its text when first needed, and the writing forms.
#include "records/DBARecord.h"

#include "text/Error.h"

#include <algorithm>
#include <utility>

namespace vorandine::records {
namespace {

std::size_t position(int number, const char* what) {
    if (number < 1)
        throw Error(errors::OutOfRange,
                    std::string("Numéro ") + what + " hors limites : " + std::to_string(number));
    return static_cast<std::size_t>(number) - 1;
}

void refuseMarks(std::string_view text, bool values) {
    if (text.find(AttributeMark) != std::string_view::npos ||
        (!values && text.find(ValueMark) != std::string_view::npos))
        throw Error(errors::TextRefused, "Un séparateur de la base figure dans une valeur.");
}

} // namespace

DBARecord::DBARecord(std::shared_ptr<RecordHome> file, std::string key,
                     std::optional<std::string> read)
    : text_(read.value_or("")), file_(std::move(file)), key_(std::move(key)),
      read_(std::move(read)) {}

void DBARecord::split() const {
    if (split_)
        return;
    std::vector<ValueList> attributes;
    if (!text_.empty()) {
        attributes.reserve(
            1 + static_cast<std::size_t>(std::count(text_.begin(), text_.end(), AttributeMark)));
        for (std::size_t from = 0;;) {
            const std::size_t to = text_.find(AttributeMark, from);
            attributes.emplace_back(text_.substr(from, to == std::string::npos ? to : to - from));
            if (to == std::string::npos)
                break;
            from = to + 1;
        }
    }
    attributes_ = std::move(attributes);
    text_ = {};
    split_ = true;
}

const ValueList* DBARecord::find(int a) const {
    split();
    return a >= 1 && static_cast<std::size_t>(a) <= attributes_.size()
               ? &attributes_[static_cast<std::size_t>(a) - 1]
               : nullptr;
}

ValueList& DBARecord::reach(int a) {
    const std::size_t at = position(a, "d'attribut");
    split();
    if (at >= attributes_.size())
        attributes_.resize(at + 1);
    return attributes_[at];
}

std::string DBARecord::operator()() const {
    std::string whole;
    if (split_) {
        for (const ValueList& attribute : attributes_) {
            whole += attribute.text();
            whole.push_back(AttributeMark);
        }
    } else {
        whole = text_;
    }
    whole.erase(whole.find_last_not_of(AttributeMark) + 1);
    return whole;
}

std::string DBARecord::operator()(int a) const {
    const ValueList* const values = find(a);
    return values != nullptr ? values->text() : std::string();
}

std::string DBARecord::operator()(int a, int v) const {
    const ValueList* const values = find(a);
    return values != nullptr && v >= 1 ? std::string(values->at(static_cast<std::size_t>(v) - 1))
                                       : std::string();
}

DBARecord::Whole DBARecord::operator()() {
    return Whole(*this);
}
DBARecord::Attribute DBARecord::operator()(int a) {
    return {*this, a};
}
DBARecord::Value DBARecord::operator()(int a, int v) {
    return {*this, a, v};
}
DBARecord::Insertion DBARecord::Insert(int a, int v) {
    return {*this, a, v};
}

void DBARecord::setText(std::string text) {
    text_ = std::move(text);
    attributes_.clear();
    split_ = false;
}

void DBARecord::setAttribute(int a, std::string text) {
    refuseMarks(text, true);
    reach(a) = ValueList(std::move(text));
}

void DBARecord::setValue(int a, int v, std::string value) {
    refuseMarks(value, false);
    if (v == -1) {
        ValueList& values = reach(a);
        values.set(values.size(), std::move(value));
    } else {
        const std::size_t at = position(v, "de valeur");
        reach(a).set(at, std::move(value));
    }
}

void DBARecord::insertValue(int a, int v, std::string value) {
    refuseMarks(value, false);
    const std::size_t at = position(v, "de valeur");
    reach(a).insert(at, std::move(value));
}

void DBARecord::Delete(int a, int v) {
    if (find(a) != nullptr && v >= 1)
        reach(a).erase(static_cast<std::size_t>(v) - 1);
}

int DBARecord::DCount() const {
    split();
    return static_cast<int>(attributes_.size());
}

int DBARecord::DCount(int a) const {
    const ValueList* const values = find(a);
    return values == nullptr || values->empty() ? 0 : static_cast<int>(values->size());
}

RecordHome& DBARecord::home() const {
    if (file_ == nullptr)
        throw Error(errors::FreeRecord, "Cette fiche n'est rattachée à aucun fichier.");
    return *file_;
}

void DBARecord::DBWrite() {
    DBWriteOver(read_);
}

void DBARecord::DBWriteOver(const std::optional<std::string>& stored) {
    std::string text = std::as_const(*this)();
    home().WriteRecord(key_, text, stored);
    read_ = std::move(text);
}

void DBARecord::DBDelete() {
    home().DeleteRecord(key_, read_);
    read_.reset();
}

DBARecord::Whole& DBARecord::Whole::operator=(std::string text) {
    record_.setText(std::move(text));
    return *this;
}

DBARecord::Attribute& DBARecord::Attribute::operator=(std::string text) {
    record_.setAttribute(a_, std::move(text));
    return *this;
}

DBARecord::Value& DBARecord::Value::operator=(std::string value) {
    record_.setValue(a_, v_, std::move(value));
    return *this;
}

DBARecord::Insertion& DBARecord::Insertion::operator=(std::string value) {
    record_.insertValue(a_, v_, std::move(value));
    return *this;
}

} // namespace vorandine::records
