#include "src/preprocess/define-table.h"

#include "src/base/hash.h"

namespace torvel {

std::size_t DefineTable::slotOf(std::string_view name, std::uint64_t hash) const {
    std::size_t slot = hash & (slots_.size() - 1);
    while (slots_[slot] != 0) {
        const Name& entry = names_[slots_[slot] - 1];
        if (entry.hash == hash && entry.text == name) {
            break;
        }
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

void DefineTable::growSlots() {
    slots_.assign(slots_.empty() ? 64 : slots_.size() * 2, 0);
    for (std::uint32_t name = 0; name < names_.size(); ++name) {
        slots_[slotOf(names_[name].text, names_[name].hash)] = name + 1;
    }
}

std::uint32_t DefineTable::intern(std::string_view name) {
    if (names_.size() * 2 >= slots_.size()) {
        growSlots();
    }
    const std::uint64_t hash = hashText(name);
    std::uint32_t& slot = slots_[slotOf(name, hash)];
    if (slot == 0) {
        names_.push_back({name, hash, none, none});
        slot = static_cast<std::uint32_t>(names_.size());
        lengths_.add(name);
        if (name.size() >= LongNames::shortest) {
            longNames_.add(name);
        }
    }
    return slot - 1;
}

/// The scope that `scope` has become part of.
std::uint32_t DefineTable::rootOf(std::uint32_t scope) const {
    while (mergedInto_[scope] != scope) {
        mergedInto_[scope] = mergedInto_[mergedInto_[scope]];
        scope = mergedInto_[scope];
    }
    return scope;
}

void DefineTable::push(std::uint32_t name, std::uint32_t entry, std::uint32_t scope) {
    Name& target = names_[name];
    entries_[entry].scope_ = scope;
    entries_[entry].below_ = target.top;
    if (target.top != none && rootOf(entries_[target.top].scope_) == scope) {
        entries_[entry].below_ = entries_[target.top].below_;
    }
    target.top = entry;
}

void DefineTable::enter(std::string_view name, Kind kind, const Expansion& expansion) {
    const std::uint32_t number = intern(name);
    const auto entry = static_cast<std::uint32_t>(entries_.size());
    entries_.emplace_back();
    entries_.back().kind = kind;
    entries_.back().expansion = expansion;
    push(number, entry, scopes_.empty() ? 0 : scopes_.back().label);
    if (!scopes_.empty()) {
        scopes_.back().names.push_back(number);
    }
}

const DefineTable::Entry* DefineTable::find(std::string_view name, std::uint64_t hash) const {
    if (names_.empty()) {
        return nullptr;
    }
    const std::uint32_t number = slots_[slotOf(name, hash)];
    if (number == 0 || names_[number - 1].top == none) {
        return nullptr;
    }
    return &entries_[names_[number - 1].top];
}

const DefineTable::Entry* DefineTable::findUntaken(std::string_view name,
                                                   std::uint64_t hash) const {
    if (inactiveScopes_ == 0 || names_.empty()) {
        return nullptr;
    }
    const std::uint32_t number = slots_[slotOf(name, hash)];
    if (number == 0 || names_[number - 1].untaken == none) {
        return nullptr;
    }
    return &entries_[names_[number - 1].untaken];
}

void DefineTable::openScope(bool active) {
    const auto label = static_cast<std::uint32_t>(mergedInto_.size());
    mergedInto_.push_back(label);
    scopes_.push_back({label, active, {}, {}});
    inactiveScopes_ += active ? 0 : 1;
}

/// Takes the branch's entries off their names' stacks: into `ofTakenBranch` if the branch was taken, else into
/// the names of branches not taken.
void DefineTable::takeOff(Scope& scope) {
    for (const std::uint32_t number : scope.names) {
        Name& name = names_[number];
        const std::uint32_t newest = name.top;
        bool found = false;
        while (name.top != none && rootOf(entries_[name.top].scope_) == scope.label) {
            name.top = entries_[name.top].below_;
            found = true;
        }
        if (!found) {
            continue;
        }
        if (scope.active) {
            scope.ofTakenBranch.emplace_back(number, newest);
        } else if (entries_[newest].kind != Kind::undefined) {
            name.untaken = newest;
        }
    }
    scope.names.clear();
}

void DefineTable::endBranch() {
    takeOff(scopes_.back());
}

void DefineTable::beginBranch(bool active) {
    Scope& scope = scopes_.back();
    inactiveScopes_ -= scope.active ? 0 : 1;
    inactiveScopes_ += active ? 0 : 1;
    scope.active = active;
}

void DefineTable::closeScope() {
    Scope scope = std::move(scopes_.back());
    scopes_.pop_back();
    if (!scope.active) {
        takeOff(scope);
        inactiveScopes_ -= 1;
    }
    for (const auto& [name, entry] : scope.ofTakenBranch) {
        push(name, entry, scope.label);
        scope.names.push_back(name);
    }
    if (scopes_.empty()) {
        mergedInto_[scope.label] = 0;
        return;
    }
    mergedInto_[scope.label] = scopes_.back().label;
    std::vector<std::uint32_t>& outer = scopes_.back().names;
    if (outer.size() < scope.names.size()) {
        outer.swap(scope.names);
    }
    outer.insert(outer.end(), scope.names.begin(), scope.names.end());
}

}  // namespace torvel
