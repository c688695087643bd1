// Converts text between the core, which uses UTF-8, and Qt.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace discwright::desktop {

// Bytes that are not valid UTF-8 become U+FFFD.
QString ToQt(std::string_view text);
QString LinesToQt(std::string_view text);  // the same; line ends of Windows become line feeds
std::string FromQt(const QString& text);

}  // namespace discwright::desktop
