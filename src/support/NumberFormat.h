#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quillmeter {

/// Numbers as users read them: decimal style with the grouping of a locale, rounded half to even. Immutable
/// once made, so one object may serve many threads. Making one is costly (it loads locale data); keep it.
class DecimalFormatter {
 public:
  /// `locale` is an ICU locale name; the empty name means the user's own (the process's environment).
  DecimalFormatter(int minimumFractionDigits, int maximumFractionDigits, const std::string& locale = {});
  ~DecimalFormatter();
  DecimalFormatter(DecimalFormatter&&) noexcept;
  DecimalFormatter& operator=(DecimalFormatter&&) noexcept;

  [[nodiscard]] std::string format(std::int64_t value) const;
  [[nodiscard]] std::string format(std::uint64_t value) const;
  [[nodiscard]] std::string format(double value) const;
  /// A number that is written without grouping in ASCII, in the digits that the locale uses: beside formatted numbers
  /// no reader should meet two kinds of digits.
  [[nodiscard]] std::string inLocalDigits(std::string_view plain) const;

 private:
  struct Implementation;
  std::unique_ptr<Implementation> implementation_;
};

/// `value` with exactly `decimals` decimals, a point and no grouping in every locale, as printf's "%.*f" in
/// the C locale: 2.005 gives what the nearest double gives; "nan", "inf" and "-inf" for values that are not
/// finite.
[[nodiscard]] std::string fixed(double value, int decimals);

/// A size as the charts and the report write it: in KB, from 1024 KB on in MB, with a point and one decimal.
[[nodiscard]] std::string sizeInKilobytes(double bytes);

}  // namespace quillmeter
