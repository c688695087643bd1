// Converts text between UTF-8 and Qt's UTF-16.
#include "desktop/qt/qt_text.h"

namespace discwright::desktop {

QString ToQt(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QString LinesToQt(std::string_view text) { return ToQt(text).replace(u"\r\n"_qs, u"\n"_qs); }

std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace discwright::desktop
