#pragma once
// Pictures that others send, made small.

#include <QByteArray>
#include <QImage>

namespace ambrel {

// The largest picture in it, no larger than `side` on either side; null when it is none that a browser would take. The
// formats are few, since anybody can send them. `mostPixels`: on either side of what is taken. For any thread.
QImage smallPicture(const QByteArray& bytes, int side, int mostPixels);

}  // namespace ambrel
