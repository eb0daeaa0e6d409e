// The words by which the outputs call what a chart holds.
#ifndef MEASDATA_KIT_WRITE_WORDS_H
#define MEASDATA_KIT_WRITE_WORDS_H

#include "kit/chart/chart.h"

#include <string_view>

namespace measkit {

constexpr std::string_view word_of(Severity severity) {
  switch (severity) {
    case Severity::note:
      return "note";
    case Severity::repaired:
      return "repaired";
    case Severity::doubtful:
      return "doubtful";
    case Severity::lost:
      break;
  }
  return "lost";
}

constexpr std::string_view word_of(Content content) {
  switch (content) {
    case Content::measurement:
      return "measurement";
    case Content::correction_matrix:
      return "correction matrix";
    case Content::calibration_curves:
      return "calibration curves";
    case Content::emission_spectra:
      break;
  }
  return "emission spectra";
}

constexpr std::string_view word_of(Quantity quantity) {
  switch (quantity) {
    case Quantity::reflectance:
      return "reflectance";
    case Quantity::transmittance:
      return "transmittance";
    case Quantity::emission:
      break;
  }
  return "emission";
}

constexpr std::string_view word_of(LabSource source) {
  switch (source) {
    case LabSource::none:
      return "none";
    case LabSource::weighting_table:
      return "spectra by weighting table";
    case LabSource::integration:
      return "spectra by integration";
    case LabSource::file:
      return "file";
    case LabSource::xyz:
      return "XYZ";
    case LabSource::lch:
      return "LCh";
    case LabSource::display:
      break;
  }
  return "display";
}

constexpr std::string_view word_of(LandmarkKind kind) {
  switch (kind) {
    case LandmarkKind::white:
      return "white";
    case LandmarkKind::black:
      return "black";
    case LandmarkKind::primary:
      return "primary";
    case LandmarkKind::secondary:
      return "secondary";
    case LandmarkKind::solid:
      break;
  }
  return "solid";
}

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_WORDS_H
