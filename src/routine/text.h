#pragma once

#include <QByteArrayView>
#include <QString>

namespace vellora {

// A text from its UTF-8 bytes, all of it: QString::fromUtf8 drops a mark of byte order (U+FEFF) at
// the beginning, which belongs to a stored text like any other character.
QString textFromUtf8(QByteArrayView bytes);

// As much of a text or number as a message has room for.
QString shortened(const QString& text);

// “text”, shortened.
QString quoted(const QString& text);

}  // namespace vellora
