#include "kit/cxf/pairing.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace measkit::cxf {
namespace {

using Objects = std::vector<std::size_t>;

// Takes a word off the end of a text, in any letter case and with an s behind.
bool take_ending(std::string_view& text, std::string_view word) {
  std::string_view rest = text;
  if (!rest.empty() && (rest.back() == 's' || rest.back() == 'S')) rest.remove_suffix(1);
  if (rest.size() < word.size()) return false;
  const std::string_view end = rest.substr(rest.size() - word.size());
  const bool is_same = std::equal(end.begin(), end.end(), word.begin(), [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == b;
  });
  if (is_same) text = rest.substr(0, rest.size() - word.size());
  return is_same;
}

enum class Role { samples, readings, targets };

// Objects of one type. The stem is what types of readings and of their targets have in common, such
// as "Opt" of OptTarget and OptMeasurement.
struct Group {
  std::string_view type, stem;
  Role role = Role::samples;
  Objects objects;
};

Role role_of(const Document& document, Group& group) {
  const auto any_has = [&](bool (Object::*has)() const) {
    return std::ranges::any_of(group.objects,
                               [&](std::size_t i) { return (document.objects[i].*has)(); });
  };
  group.stem = group.type;
  if (take_ending(group.stem, "measurement")) {
    if (!m_condition_at_start(group.stem).empty()) group.stem = {};
    return Role::readings;
  }
  if (!take_ending(group.stem, "target")) return Role::samples;
  const bool has_cells = std::ranges::any_of(
      group.objects, [&](std::size_t i) { return document.objects[i].has_cells; });
  const bool is_plain =
      (has_cells || any_has(&Object::has_device)) && !any_has(&Object::has_colours);
  return is_plain ? Role::targets : Role::samples;
}

std::vector<Group> groups_of(const Document& document) {
  std::vector<Group> groups;
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t i = 0; i < document.objects.size(); ++i) {
    const Object& object = document.objects[i];
    if (!object.has_colours() && !object.has_device() && !object.has_cells) continue;
    const auto [found, is_new] = places.emplace(object.type, groups.size());
    if (is_new) groups.push_back({object.type, {}, Role::samples, {}});
    groups[found->second].objects.push_back(i);
  }
  for (Group& group : groups) group.role = role_of(document, group);
  return groups;
}

// Groups of targets by their stems.
using Targets = std::unordered_map<std::string_view, const Group*>;

// The targets with the stem of the readings, else the only ones.
const Group* targets_of(const Group& readings, const Targets& targets) {
  const auto found = targets.find(readings.stem);
  if (found != targets.end()) return found->second;
  return targets.size() == 1 ? targets.begin()->second : nullptr;
}

std::string place_of(const Object& object) {
  if (!object.has_location()) return {};
  std::string place;
  for (const std::string_view part : {object.page, object.row, object.column}) {
    place.append(part) += '\n';
  }
  return place;
}

std::string number_of_name(const Object& object) {
  const std::string_view name = object.name;
  std::string_view number = name.substr(name.find_last_not_of("0123456789") + 1);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return std::string(number);
}

using KeyOf = std::function<std::string(const Object&)>;
using Keys = std::unordered_map<std::string, std::size_t>;

// Where each key is; empty when an object has none or shares it.
Keys keys_of(const Document& document, const Objects& objects, const KeyOf& key_of) {
  Keys keys;
  for (const std::size_t i : objects) {
    std::string key = key_of(document.objects[i]);
    if (key.empty() || !keys.emplace(std::move(key), i).second) return {};
  }
  return keys;
}

// In the order of the targets; readings of none of them come last.
bool pair_by(const Document& document, const KeyOf& key_of, const Objects& readings,
             const Objects& targets, std::vector<Patch>& patches) {
  Keys keys = keys_of(document, readings, key_of);
  if (keys.empty() || keys_of(document, targets, key_of).empty()) return false;
  std::size_t pairs = 0;
  for (const std::size_t target : targets) {
    const auto found = keys.find(key_of(document.objects[target]));
    const bool is_read = found != keys.end();
    patches.push_back({target, is_read ? found->second : kNoObject});
    pairs += is_read ? 1 : 0;
    if (is_read) found->second = kNoObject;
  }
  if (pairs == 0) {
    patches.clear();
    return false;
  }
  for (const std::size_t reading : readings) {
    if (keys.at(key_of(document.objects[reading])) != kNoObject) {
      patches.push_back({kNoObject, reading});
    }
  }
  return true;
}

void tell_unpaired(PatchSet& set) {
  const auto without = [&set](std::size_t Patch::*side) {
    return static_cast<std::size_t>(std::ranges::count(set.patches, kNoObject, side));
  };
  const std::size_t targets = without(&Patch::colours), readings = without(&Patch::device);
  if (targets + readings == 0) return;
  set.findings.add(Severity::doubtful, "cxf-unpaired",
                   "Kept alone: " + counted(targets, "target") + " without a measurement and " +
                       counted(readings, "measurement") + " without a target.");
}

PatchSet paired(const Document& document, const Group& readings, const Objects& targets) {
  PatchSet set = {readings.type, {}, {}};
  const std::string what = "Measurements of type " + std::string(readings.type) + " and targets ";
  if (pair_by(document, place_of, readings.objects, targets, set.patches)) {
    set.findings.add(Severity::note, "cxf-pairs", what + "are paired by their locations.");
  } else if (pair_by(document, number_of_name, readings.objects, targets, set.patches)) {
    set.findings.add(Severity::note, "cxf-pairs",
                     what + "are paired by the numbers in their names.");
  } else if (readings.objects.size() == targets.size()) {
    for (std::size_t i = 0; i < targets.size(); ++i) {
      set.patches.push_back({targets[i], readings.objects[i]});
    }
    set.findings.add(Severity::doubtful, "cxf-order",
                     what + "are paired by their order: locations and names do not pair them.");
  } else {
    for (const std::size_t target : targets) set.patches.push_back({target, kNoObject});
    for (const std::size_t reading : readings.objects) {
      set.patches.push_back({kNoObject, reading});
    }
  }
  tell_unpaired(set);
  return set;
}

Patch patch_alone(const Document& document, std::size_t i) {
  const Object& object = document.objects[i];
  const bool has_device = object.has_device() || !object.has_colours();
  return {has_device ? i : kNoObject, object.has_colours() ? i : kNoObject};
}

PatchSet alone(const Document& document, std::string_view type, const Objects& objects) {
  PatchSet set = {type, {}, {}};
  for (const std::size_t i : objects) set.patches.push_back(patch_alone(document, i));
  return set;
}

}  // namespace

std::string_view m_condition_at_start(std::string_view text) {
  const bool is_m = text.size() >= 2 && text[0] == 'M' && text[1] >= '0' && text[1] <= '3' &&
                    (text.size() == 2 || std::isalnum(static_cast<unsigned char>(text[2])) == 0);
  return is_m ? text.substr(0, 2) : std::string_view();
}

std::vector<PatchSet> patch_sets_of(const Document& document, std::size_t most_sets,
                                    std::size_t& left_out) {
  const std::vector<Group> groups = groups_of(document);
  Targets targets;
  for (const Group& group : groups) {
    if (group.role == Role::targets) targets.emplace(group.stem, &group);
  }
  std::vector<PatchSet> sets;
  std::unordered_set<const Group*> used;
  for (const Group& group : groups) {
    if (group.role != Role::readings) continue;
    if (sets.size() == most_sets) {
      left_out += group.objects.size();
      continue;
    }
    const bool has_own = std::ranges::any_of(
        group.objects, [&](std::size_t i) { return document.objects[i].has_device(); });
    const Group* const own_targets = has_own ? nullptr : targets_of(group, targets);
    if (own_targets == nullptr) {
      sets.push_back(alone(document, group.type, group.objects));
    } else {
      sets.push_back(paired(document, group, own_targets->objects));
      used.insert(own_targets);
    }
  }
  Objects others;
  for (const Group& group : groups) {
    if (group.role == Role::readings || used.contains(&group)) continue;
    others.insert(others.end(), group.objects.begin(), group.objects.end());
  }
  std::sort(others.begin(), others.end());
  if (!others.empty()) sets.push_back(alone(document, {}, others));
  return sets;
}

}  // namespace measkit::cxf
