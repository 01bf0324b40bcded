#include "src/preprocess/define-table.h"

#include <utility>

#include "src/base/hash.h"

namespace torvel {

void DefineTable::growSlots() {
    std::vector<Slot> old(slots_.empty() ? 64 : slots_.size() * 2);
    old.swap(slots_);
    for (const Slot& entry : old) {
        if (entry.number != 0) {
            std::size_t slot = entry.hash & (slots_.size() - 1);
            while (slots_[slot].number != 0) {
                slot = (slot + 1) & (slots_.size() - 1);
            }
            slots_[slot] = entry;
        }
    }
}

std::uint32_t DefineTable::intern(std::string_view name) {
    if (names_.size() * 2 >= slots_.size()) {
        growSlots();
    }
    const std::uint64_t hash = hashText(name);
    Slot& slot = slots_[slotOf(name, hash)];
    if (slot.number == 0) {
        names_.push_back({name, none, none});
        slot = {static_cast<std::uint32_t>(hash), static_cast<std::uint32_t>(names_.size())};
        lengths_.add(name);
        if (name.size() >= LongNames::shortest) {
            longNames_.add({name, hash});
        }
    }
    return slot.number - 1;
}

std::uint32_t DefineTable::addScope() {
    const auto number = static_cast<std::uint32_t>(scopes_.size());
    scopes_.push_back({number});
    return number;
}

/// The scope that `scope` has become part of.
std::uint32_t DefineTable::rootOf(std::uint32_t scope) {
    while (scopes_[scope].mergedInto != scope) {
        scopes_[scope].mergedInto = scopes_[scopes_[scope].mergedInto].mergedInto;
        scope = scopes_[scope].mergedInto;
    }
    return scope;
}

void DefineTable::enter(std::string_view name, Kind kind, const Expansion& expansion) {
    const std::uint32_t number = intern(name);
    const std::uint32_t scope = conditionals_.empty() ? 0 : conditionals_.back().scope;
    std::uint32_t& top = names_[number].top;
    Entry entry;
    entry.expansion = expansion;
    entry.kind = kind;
    entry.scope_ = scope;
    entry.below_ = isOf(top, scope) ? entries_[top].below_ : top;
    entry.name_ = number;
    top = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back(entry);
    if (!conditionals_.empty()) {
        conditionals_.back().names.push_back(number);
    }
}

/// Takes the entries of `scope` off the name's stack, as far as they are on top. The newest is returned.
std::uint32_t DefineTable::takeOff(Name& name, std::uint32_t scope) {
    const std::uint32_t newest = name.top;
    while (isOf(name.top, scope)) {
        name.top = entries_[name.top].below_;
    }
    return newest;
}

/// Takes hidden entries off the name's stack, until one is on top that can be seen.
void DefineTable::takeOffHidden(Name& name) {
    while (name.top != none) {
        const std::uint32_t number = rootOf(entries_[name.top].scope_);
        Scope& scope = scopes_[number];
        if (!scope.isHidden) {
            return;
        }
        const std::uint32_t newest = takeOff(name, number);
        entries_[newest].below_ = scope.takenOff;
        scope.takenOff = newest;
    }
}

/// Ends the hiding of a scope: what was taken off the stacks comes back.
void DefineTable::show(std::uint32_t scope) {
    std::uint32_t next = scopes_[scope].takenOff;
    while (next != none) {
        Entry& entry = entries_[next];
        std::uint32_t& top = names_[entry.name_].top;
        const std::uint32_t shown = next;
        next = entry.below_;
        entry.below_ = top;
        top = shown;
    }
    scopes_[scope].takenOff = none;
    scopes_[scope].isHidden = false;
    hiddenScopes_ -= 1;
}

const DefineTable::Entry* DefineTable::findUntaken(std::string_view name,
                                                   std::uint64_t hash) const {
    if (inactiveConditionals_ == 0 || names_.empty()) {
        return nullptr;
    }
    const std::uint32_t number = slots_[slotOf(name, hash)].number;
    if (number == 0 || names_[number - 1].untaken == none) {
        return nullptr;
    }
    return &entries_[names_[number - 1].untaken];
}

void DefineTable::openScope(bool active) {
    conditionals_.push_back({addScope(), active, none, {}, {}});
    inactiveConditionals_ += active ? 0 : 1;
}

/// Takes the branch's entries off their names' stacks, for good: into the names of branches not taken.
void DefineTable::endUntakenBranch(Conditional& conditional) {
    for (const std::uint32_t number : conditional.names) {
        Name& name = names_[number];
        if (isOf(name.top, conditional.scope)) {
            const std::uint32_t newest = takeOff(name, conditional.scope);
            if (entries_[newest].kind != Kind::undefined) {
                name.untaken = newest;
            }
        }
    }
    conditional.names.clear();
}

void DefineTable::endBranch() {
    Conditional& conditional = conditionals_.back();
    if (!conditional.active) {
        endUntakenBranch(conditional);
        return;
    }
    conditional.taken = conditional.scope;
    conditional.namesOfTaken.swap(conditional.names);
    conditional.scope = addScope();
    scopes_[conditional.taken].isHidden = true;
    hiddenScopes_ += 1;
}

void DefineTable::beginBranch(bool active) {
    Conditional& conditional = conditionals_.back();
    inactiveConditionals_ -= conditional.active ? 0 : 1;
    inactiveConditionals_ += active ? 0 : 1;
    conditional.active = active;
}

void DefineTable::closeScope() {
    Conditional ended = std::move(conditionals_.back());
    conditionals_.pop_back();
    if (!ended.active) {
        endUntakenBranch(ended);
        inactiveConditionals_ -= 1;
    }
    if (ended.taken != none) {
        show(ended.taken);
        ended.scope = ended.taken;
        ended.names.swap(ended.namesOfTaken);
    }
    if (conditionals_.empty()) {
        scopes_[ended.scope].mergedInto = 0;
        return;
    }
    scopes_[ended.scope].mergedInto = conditionals_.back().scope;
    std::vector<std::uint32_t>& outer = conditionals_.back().names;
    if (outer.size() < ended.names.size()) {
        outer.swap(ended.names);
    }
    outer.insert(outer.end(), ended.names.begin(), ended.names.end());
}

}  // namespace torvel
