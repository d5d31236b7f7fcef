// fmt's functions, compiled once for everything that formats text.
#include <fmt/format-inl.h>

// format.h declares these as instantiated elsewhere: here.
FMT_BEGIN_NAMESPACE
namespace detail {
template FMT_API auto thousands_sep_impl<char>(locale_ref) -> thousands_sep_result<char>;
template FMT_API auto decimal_point_impl(locale_ref) -> char;
template FMT_API void buffer<char>::append(const char*, const char*);
}  // namespace detail
FMT_END_NAMESPACE
