// The gap buffer of an attribute's values.
#include "records/ValueList.h"

#include "records/DBARecord.h"

#include <algorithm>
#include <utility>

namespace vorandine::records {

void ValueList::split() const {
    if (split_)
        return;
    std::vector<std::string> values;
    values.reserve(1 + static_cast<std::size_t>(std::count(text_.begin(), text_.end(), ValueMark)));
    for (std::size_t from = 0;;) {
        const std::size_t to = text_.find(ValueMark, from);
        values.push_back(text_.substr(from, to == std::string::npos ? to : to - from));
        if (to == std::string::npos)
            break;
        from = to + 1;
    }
    slots_ = std::move(values);
    gapBegin_ = gapEnd_ = slots_.size();
    text_ = {};
    split_ = true;
}

std::size_t ValueList::size() const {
    if (!split_)
        return 1 + static_cast<std::size_t>(std::count(text_.begin(), text_.end(), ValueMark));
    return count();
}

bool ValueList::empty() const {
    if (!split_)
        return text_.empty();
    return count() == 0 || (count() == 1 && slot(0).empty());
}

std::string_view ValueList::at(std::size_t i) const {
    split();
    return i < count() ? std::string_view(slot(i)) : std::string_view();
}

std::string ValueList::text() const {
    if (!split_)
        return text_;
    std::string joined;
    for (std::size_t i = 0; i < count(); ++i) {
        if (i > 0)
            joined.push_back(ValueMark);
        joined += slot(i);
    }
    return joined;
}

void ValueList::moveGap(std::size_t to) {
    if (gapBegin_ == gapEnd_) {
        gapBegin_ = gapEnd_ = to;
        return;
    }
    while (gapBegin_ > to)
        slots_[--gapEnd_] = std::move(slots_[--gapBegin_]);
    while (gapBegin_ < to)
        slots_[gapBegin_++] = std::move(slots_[gapEnd_++]);
}

// Makes room for `many` empty values before position i, which is at most count().
void ValueList::open(std::size_t i, std::size_t many) {
    moveGap(i);
    if (gapEnd_ - gapBegin_ < many) {
        // A new row of slots half as long again, filled from both ends towards the gap.
        std::vector<std::string> wider(count() + count() / 2 + many + 3);
        const std::size_t behind = slots_.size() - gapEnd_;
        const auto gap = slots_.begin() + static_cast<std::ptrdiff_t>(gapBegin_);
        std::move(slots_.begin(), gap, wider.begin());
        std::move(slots_.begin() + static_cast<std::ptrdiff_t>(gapEnd_), slots_.end(),
                  wider.end() - static_cast<std::ptrdiff_t>(behind));
        gapEnd_ = wider.size() - behind;
        slots_ = std::move(wider);
    }
    for (const std::size_t end = gapBegin_ + many; gapBegin_ < end; ++gapBegin_)
        slots_[gapBegin_].clear();
}

void ValueList::set(std::size_t i, std::string value) {
    split();
    if (i >= count()) {
        insert(i, std::move(value));
        return;
    }
    slots_[i < gapBegin_ ? i : i + (gapEnd_ - gapBegin_)] = std::move(value);
}

void ValueList::insert(std::size_t i, std::string value) {
    split();
    // All that is missing before it comes at once, so that a failure leaves nothing behind.
    const std::size_t missing = i > count() ? i - count() : 0;
    open(i - missing, missing + 1);
    slots_[gapBegin_ - 1] = std::move(value);
}

void ValueList::erase(std::size_t i) {
    split();
    if (i >= count())
        return;
    // Coming from behind, the gap stops after the value; coming from before, in front of it.
    if (gapBegin_ > i) {
        moveGap(i + 1);
        --gapBegin_;
        slots_[gapBegin_].clear();
    } else {
        moveGap(i);
        slots_[gapEnd_].clear();
        ++gapEnd_;
    }
}

} // namespace vorandine::records
