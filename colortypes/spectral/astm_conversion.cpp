#include "colortypes/spectral/astm_conversion.h"

#include "colortypes/lab_curve.h"
#include "colortypes/spectral/weight_tables.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

namespace vantor::ColorTypes::Spectral {
namespace {

// Every spectrum must reach over this range, nm; beyond it the ends can be folded.
constexpr std::int32_t kLatestStartNm = 460;
constexpr std::int32_t kEarliestEndNm = 680;

bool isGridSupported(const AstmParameters& parameters) {
  if (parameters.stepNm != 10 && parameters.stepNm != 20) return false;
  if (parameters.startNm % parameters.stepNm != 0) return false;
  if (parameters.sampleCount < 1) return false;
  if (parameters.startNm > kLatestStartNm) return false;
  const std::int64_t end_nm = parameters.startNm + (std::int64_t{parameters.sampleCount} - 1) *
                                                       std::int64_t{parameters.stepNm};
  if (end_nm < kEarliestEndNm) return false;
  const bool is_ul35 = parameters.illuminant == static_cast<std::int32_t>(Illuminant::UL35);
  return !is_ul35 || parameters.stepNm == 10;
}

std::string missingTableText(const AstmParameters& parameters) {
  std::string light;
  switch (static_cast<Illuminant>(parameters.illuminant)) {
    case Illuminant::UL30:
      light = "UL30";
      break;
    case Illuminant::LedB1:
    case Illuminant::LedB2:
    case Illuminant::LedB3:
    case Illuminant::LedB4:
    case Illuminant::LedB5:
      light = "LED B1-B5";
      break;
    default:
      return "unsupported table";
  }
  const bool two_degrees = parameters.observer == static_cast<std::int32_t>(Observer::Cie1931_2deg);
  return "unsupported: no ASTM data " + light + (two_degrees ? " 2deg " : " 10deg ") +
         (parameters.useTable5 ? "table5" : "table6");
}

// Table row r belongs to sample r + offset. Rows without a sample are dropped or go to the nearest
// end; samples without a row have no weight.
WeightedSums layWeights(const WeightTable& table, const AstmParameters& parameters) {
  const std::int64_t offset =
      (kTableStartNm - std::int64_t{parameters.startNm}) / std::int64_t{parameters.stepNm};
  const std::int64_t first = std::max<std::int64_t>(offset, 0);
  const std::int64_t last =
      std::min<std::int64_t>(offset + std::ssize(table), parameters.sampleCount) - 1;
  WeightedSums sums(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1));
  std::int64_t sample = offset;
  for (const WeightRow& row : table) {
    const std::int64_t nearest = std::clamp(sample, first, last);
    if (nearest == sample || parameters.foldEnds) {
      sums.add(static_cast<std::size_t>(nearest), row.x, row.y, row.z);
    }
    ++sample;
  }
  return sums;
}

}  // namespace

bool ASTMSpectralConversion::configure(const AstmParameters& parameters) {
  if (!isGridSupported(parameters)) return false;
  if (parameters.illuminant < 0 || parameters.illuminant >= kIlluminantCount ||
      parameters.observer < 0 || parameters.observer > 1) {
    throw std::invalid_argument("unsupported table");
  }
  const auto illuminant = static_cast<Illuminant>(parameters.illuminant);
  const auto observer = static_cast<Observer>(parameters.observer);
  const TableType type = parameters.useTable5 ? TableType::Table5 : TableType::Table6;
  const WeightTable table = findWeightTable(parameters.stepNm, type, observer, illuminant);
  if (table.empty()) throw std::invalid_argument(missingTableText(parameters));

  // Built apart, so that a failure half-way leaves this converter whole.
  WeightedSums sums = layWeights(table, parameters);
  const Tristimulus white = parameters.useCustomWhite ? parameters.customWhite
                                                      : tableWhitePoint(illuminant, observer, type);
  if (parameters.normaliseToWhite) {
    sums.normalise(parameters.whiteValue, white);
  } else {
    sums.divideBy(parameters.whiteValue);
  }
  const Tristimulus lab_white =
      parameters.keepWhitePoint ? white : sums.plainSums(parameters.whiteValue);
  const Tristimulus& factor = sums.factor();
  lab_scale_ = {factor.x / lab_white.x, factor.y / lab_white.y, factor.z / lab_white.z};
  sums_ = std::move(sums);
  return true;
}

void ASTMSpectralConversion::spectralToXYZ(const double* spectrum, double& x, double& y,
                                           double& z) const {
  const Tristimulus xyz = sums_.xyzOf(spectrum);
  x = xyz.x;
  y = xyz.y;
  z = xyz.z;
}

void ASTMSpectralConversion::spectralToLab(const double* spectrum, double& l, double& a,
                                           double& b) const {
  const Tristimulus fractions = sums_.fractionsOf(spectrum);
  const Lab lab = ratiosToLab(
      {fractions.x * lab_scale_.x, fractions.y * lab_scale_.y, fractions.z * lab_scale_.z});
  l = lab.l;
  a = lab.a;
  b = lab.b;
}

}  // namespace vantor::ColorTypes::Spectral
