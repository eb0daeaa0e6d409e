// Finds values in the free text by which files describe the instrument and the measurement.
#ifndef MEASDATA_API_INSTRUMENT_TEXT_H
#define MEASDATA_API_INSTRUMENT_TEXT_H

#include <optional>
#include <string>
#include <string_view>

namespace vantor::Api {

/// An answer, or none when the text does not tell.
using Answer = std::optional<std::string>;

// From INSTRUMENTATION, such as
// "Maker ModelName, D50, 2 degree, geometry 45/0, no polarisation filter, white backing, ...".

/// The word behind "geometry", when a comma ends it.
Answer find_geometry(std::string_view text);
/// True when the text says "no polarisation filter", in British or American spelling.
bool denies_polarization(std::string_view text);
/// The word in front of "backing".
Answer find_backing(std::string_view text);
Answer find_manufacturer(std::string_view text);
Answer find_model(std::string_view text);
/// The word behind "Serial number" or "serial number".
Answer find_serial_number(std::string_view text);
/// The word in front of an observer such as "2 degree".
Answer find_illuminant(std::string_view text);
/// The word in front of "degree".
Answer find_observer(std::string_view text);

// From MEASUREMENT_SOURCE, such as "Illumination=D50 Observer=2degree Filter=UV DensityStd=Status
// T".

/// What follows `key` in the first word that begins with it; `key` ends with "=".
Answer find_setting(std::string_view text, std::string_view key);
/// The density standard; "Status" takes the next word with it.
Answer find_density_standard(std::string_view text);

// From WEIGHTING_FUNCTION, such as "ILLUMINANT, D50".

/// The second word of a text whose first word begins with `key`.
Answer find_weighting(std::string_view text, std::string_view key);

}  // namespace vantor::Api

#endif  // MEASDATA_API_INSTRUMENT_TEXT_H
