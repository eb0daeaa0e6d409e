// Reads tables with a wavelength in each row and a sample in each column.
#ifndef MEASDATA_KIT_PREFLIGHT_TRANSPOSED_H
#define MEASDATA_KIT_PREFLIGHT_TRANSPOSED_H

#include "kit/preflight/table.h"
#include "kit/preflight/unreadable_text.h"

#include <optional>
#include <string_view>

namespace measkit {

/// What proves that the first column holds wavelengths.
enum class WavelengthProof {
  named,  ///< a line above the numbers names them
  even,   ///< they rise or fall in even steps through the visible range
};

/// The table with one row a sample. None when nothing gives that proof, or when such a table holds
/// something else than spectra of samples; `refusal` then tells why.
std::optional<Table> read_transposed(std::string_view text, WavelengthProof proof,
                                     std::optional<Refusal>& refusal);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_TRANSPOSED_H
