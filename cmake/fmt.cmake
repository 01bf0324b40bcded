# What fmt's headers do not have inline, compiled once. Debian's library is a shared one, and there is none for Windows
# and browsers. `third_party` is the folder of the headers, where it is not the system's.
set(fmt_source "${PROJECT_BINARY_DIR}/fmt-text.cpp")
file(CONFIGURE OUTPUT "${fmt_source}" CONTENT "#include <fmt/format-inl.h>
namespace fmt::detail {
template dragonbox::decimal_fp<float> dragonbox::to_decimal(float) noexcept;
template dragonbox::decimal_fp<double> dragonbox::to_decimal(double) noexcept;
template locale_ref::locale_ref(const std::locale&);
template auto locale_ref::get<std::locale>() const -> std::locale;
template auto thousands_sep_impl<char>(locale_ref) -> thousands_sep_result<char>;
template auto decimal_point_impl(locale_ref) -> char;
}
")
add_library(fmt_text STATIC "${fmt_source}")
target_include_directories(fmt_text SYSTEM PUBLIC ${third_party})
set_target_properties(fmt_text PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
