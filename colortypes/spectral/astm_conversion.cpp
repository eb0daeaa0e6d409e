#include "colortypes/spectral/astm_conversion.h"

#include "colortypes/conversions.h"

#include <cstddef>
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
  ASTMSpectralConversion next;
  next.white_ = parameters.useCustomWhite ? parameters.customWhite
                                          : tableWhitePoint(illuminant, observer, type);
  next.layWeights(table, parameters);
  next.scaleToWhite(parameters);
  *this = std::move(next);
  return true;
}

// Table row r belongs to sample r - offset. Rows without a sample are dropped or go to the nearest
// end; samples without a row keep weight 0.
void ASTMSpectralConversion::layWeights(const WeightTable& table,
                                        const AstmParameters& parameters) {
  sampleCount_ = parameters.sampleCount;
  const auto count = static_cast<std::size_t>(sampleCount_);
  weightsX_.assign(count, 0.0);
  weightsY_.assign(count, 0.0);
  weightsZ_.assign(count, 0.0);
  const auto add = [this](std::size_t sample, const WeightRow& row) {
    weightsX_[sample] += row.x;
    weightsY_[sample] += row.y;
    weightsZ_[sample] += row.z;
  };

  const std::int64_t offset =
      (std::int64_t{parameters.startNm} - kTableStartNm) / std::int64_t{parameters.stepNm};
  std::int64_t sample = -offset;
  for (const WeightRow& row : table) {
    if (sample < 0) {
      if (parameters.foldEnds) add(0, row);
    } else if (sample >= sampleCount_) {
      if (parameters.foldEnds) add(count - 1, row);
    } else {
      add(static_cast<std::size_t>(sample), row);
    }
    ++sample;
  }
}

void ASTMSpectralConversion::scaleToWhite(const AstmParameters& parameters) {
  const std::vector<double> perfect_white(static_cast<std::size_t>(sampleCount_),
                                          parameters.whiteValue);
  const Tristimulus sums = weightedSums(perfect_white.data());
  if (parameters.normaliseToWhite) {
    divisor_ = sums;
    factor_ = white_;
  } else {
    divisor_ = {parameters.whiteValue, parameters.whiteValue, parameters.whiteValue};
    factor_ = {1.0, 1.0, 1.0};
  }
  if (!parameters.keepWhitePoint) white_ = sums;
}

Tristimulus ASTMSpectralConversion::weightedSums(const double* spectrum) const {
  Tristimulus sums = {0.0, 0.0, 0.0};
  for (std::size_t i = 0; i < static_cast<std::size_t>(sampleCount_); ++i) {
    sums.x += spectrum[i] * weightsX_[i];
    sums.y += spectrum[i] * weightsY_[i];
    sums.z += spectrum[i] * weightsZ_[i];
  }
  return sums;
}

void ASTMSpectralConversion::spectralToXYZ(const double* spectrum, double& x, double& y,
                                           double& z) const {
  const Tristimulus sums = weightedSums(spectrum);
  x = sums.x / divisor_.x * factor_.x;
  y = sums.y / divisor_.y * factor_.y;
  z = sums.z / divisor_.z * factor_.z;
}

void ASTMSpectralConversion::spectralToLab(const double* spectrum, double& l, double& a,
                                           double& b) const {
  Tristimulus xyz = {};
  spectralToXYZ(spectrum, xyz.x, xyz.y, xyz.z);
  const Lab lab = xyzToLab(xyz, white_);
  l = lab.l;
  a = lab.a;
  b = lab.b;
}

}  // namespace vantor::ColorTypes::Spectral
