#include "trouble.h"

#include <cwchar>
#include <cwctype>
#include <iomanip>

std::string fixed(double value, int digits) {
    std::ostringstream stream;
    stream << std::fixed << std::setprecision(digits) << value;
    return stream.str();
}

std::string printable(const std::filesystem::path& path) {
    const std::string& bytes = path.native();
    std::string shown;
    for (std::size_t n = 0; n < bytes.size();) {
        std::mbstate_t state{};
        wchar_t wide = 0;
        const std::size_t left = bytes.size() - n;
        const std::size_t used = std::mbrtowc(&wide, bytes.data() + n, left, &state);
        if (used >= 1 && used <= left && std::iswprint(static_cast<std::wint_t>(wide))) {
            shown.append(bytes, n, used);
            n += used;
        } else {
            shown += '?';
            ++n;
        }
    }
    return shown;
}
