#include "platform/qt/QtText.h"

#include <QFile>

#include "platform/vb/Cp1252.h"

QString ToQString(const std::string& cp1252) { return QString::fromStdString(vb::Cp1252ToUtf8(cp1252)); }

std::string FromQString(const QString& text) { return vb::Utf8ToCp1252(text.toStdString()); }

QString FromPath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }
