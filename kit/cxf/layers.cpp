#include "kit/cxf/layers.h"

#include <array>
#include <cstdint>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace measkit::cxf {
namespace {

constexpr unsigned bit_of(Kind kind) { return 1U << static_cast<unsigned>(kind); }

// Kinds that take the same fields.
constexpr std::array<unsigned, 3> kFamilies = {
    bit_of(Kind::reflectance) | bit_of(Kind::transmittance) | bit_of(Kind::emission),
    bit_of(Kind::xyz) | bit_of(Kind::emissive_xyz),
    bit_of(Kind::xyy) | bit_of(Kind::emissive_xyy),
};

unsigned family_of(unsigned kinds) {
  for (const unsigned family : kFamilies) {
    if ((kinds & family) != 0) kinds |= family;
  }
  return kinds;
}

bool has(std::string_view text, std::string_view word) {
  return text.find(word) != std::string_view::npos;
}

Quantity quantity_of(Kind kind, const Specification& specification) {
  if (kind == Kind::emission || kind == Kind::emissive_xyz || kind == Kind::emissive_xyy) {
    return Quantity::emission;
  }
  if (kind == Kind::transmittance) return Quantity::transmittance;
  if (has(specification.type, "Emissive")) return Quantity::emission;
  if (has(specification.type, "Transmittance")) return Quantity::transmittance;
  const bool is_reflectance = kind == Kind::reflectance || has(specification.type, "Reflectance");
  return is_reflectance ? Quantity::reflectance : Quantity::unknown;
}

// Where nothing but a word of its own tells the condition, an id or a type begins with it.
std::string_view m_of(const Specification& specification, std::string_view type) {
  for (const std::string_view text : {specification.illumination, specification.id, type}) {
    if (const auto m = m_condition_at_start(text); !m.empty()) return m;
  }
  return {};
}

// Values of one specification, of which no patch has two of a kind.
Layer slot_of(const Measured& value, const Document& document, std::string_view type) {
  const Specification& specification =
      document.specifications[static_cast<std::size_t>(value.specification)];
  Layer slot;
  slot.specifications = {value.specification};
  slot.quantity = quantity_of(value.kind, specification);
  slot.m = m_of(specification, type);
  slot.illuminant = specification.illuminant;
  slot.observer = specification.observer;
  slot.backing = specification.backing;
  slot.density_status = value.status;
  return slot;
}

bool agree(std::string_view a, std::string_view b) { return a.empty() || b.empty() || a == b; }

bool can_join(const Layer& layer, const Layer& slot) {
  const bool has_one_quantity = layer.quantity == Quantity::unknown ||
                                slot.quantity == Quantity::unknown ||
                                layer.quantity == slot.quantity;
  return (family_of(layer.kinds) & slot.kinds) == 0 && has_one_quantity && agree(layer.m, slot.m) &&
         agree(layer.illuminant, slot.illuminant) && agree(layer.observer, slot.observer) &&
         agree(layer.backing, slot.backing) && agree(layer.density_status, slot.density_status);
}

void join(Layer& layer, const Layer& slot) {
  layer.kinds |= slot.kinds;
  layer.specifications.push_back(slot.specifications.front());
  if (layer.quantity == Quantity::unknown) layer.quantity = slot.quantity;
  for (const auto member :
       {&Layer::m, &Layer::illuminant, &Layer::observer, &Layer::backing, &Layer::density_status}) {
    if ((layer.*member).empty()) layer.*member = slot.*member;
  }
}

class LayerMaker {
 public:
  LayerMaker(const Document& document, const PatchSet& set) : document_(document), set_(set) {}

  std::vector<Layer> make(std::size_t most_layers, std::size_t& left_out) {
    for (const Patch& patch : set_.patches) place_values(patch);
    merge_slots(most_layers);
    if (layers_.empty()) layers_.emplace_back();
    for (const Patch& patch : set_.patches) distribute(patch, left_out);
    return std::move(layers_);
  }

 private:
  using SlotKey = std::tuple<int, std::uint32_t, unsigned, std::string_view>;

  // How many values of each kind the present object has for a specification.
  struct Seen {
    std::size_t object = kNoObject;
    std::array<std::uint32_t, kKinds> counts{};
  };

  Range values_of(const Patch& patch) const {
    return patch.colours == kNoObject ? Range() : document_.objects[patch.colours].colours;
  }

  void place_values(const Patch& patch) {
    const Range range = values_of(patch);
    for (std::size_t i = range.first; i < range.first + range.count; ++i) {
      const Measured& value = document_.colours[i];
      Seen& seen = seen_[value.specification];
      if (seen.object != patch.colours) seen = {patch.colours, {}};
      const bool is_spectral = is_spectrum(value.kind);
      const auto kind = static_cast<std::size_t>(is_spectral ? Kind::reflectance : value.kind);
      const unsigned family = is_spectral ? bit_of(value.kind) : 0;
      const SlotKey key = {value.specification, seen.counts[kind]++, family, value.status};
      const auto [found, is_new] = places_.emplace(key, slots_.size());
      if (is_new) slots_.push_back(slot_of(value, document_, set_.type));
      slots_[found->second].kinds |= bit_of(value.kind);
      slot_of_value_.push_back(found->second);
    }
  }

  void merge_slots(std::size_t most_layers) {
    layer_of_slot_.assign(slots_.size(), most_layers);
    for (std::size_t i = 0; i < slots_.size(); ++i) {
      std::size_t at = 0;
      while (at < layers_.size() && !can_join(layers_[at], slots_[i])) ++at;
      if (at == most_layers) continue;
      layer_of_slot_[i] = at;
      if (at == layers_.size()) {
        layers_.push_back(slots_[i]);
      } else {
        join(layers_[at], slots_[i]);
      }
    }
  }

  // Patches without values are in the first layer.
  void distribute(const Patch& patch, std::size_t& left_out) {
    const Range range = values_of(patch);
    if (range.count == 0) {
      layers_.front().patches.push_back(patch);
      layers_.front().values.emplace_back();
    }
    for (std::size_t i = range.first; i < range.first + range.count; ++i) {
      const std::size_t at = layer_of_slot_[slot_of_value_[next_value_++]];
      if (at >= layers_.size()) {
        ++left_out;
        continue;
      }
      Layer& layer = layers_[at];
      const bool is_new = layer.patches.empty() || layer.patches.back().any() != patch.any();
      if (is_new) {
        layer.patches.push_back(patch);
        layer.values.emplace_back();
      }
      layer.values.back().push_back(i);
    }
  }

  const Document& document_;
  const PatchSet& set_;
  std::unordered_map<int, Seen> seen_;
  std::map<SlotKey, std::size_t> places_;
  std::vector<Layer> slots_, layers_;
  std::vector<std::size_t> slot_of_value_, layer_of_slot_;
  std::size_t next_value_ = 0;
};

}  // namespace

bool Layer::has_spectra() const { return (kinds & kFamilies[0]) != 0; }

std::vector<Layer> layers_of(const Document& document, const PatchSet& set, std::size_t most_layers,
                             std::size_t& left_out) {
  return LayerMaker(document, set).make(most_layers, left_out);
}

}  // namespace measkit::cxf
