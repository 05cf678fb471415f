#pragma once

#include <QByteArray>

#include <random>

namespace vellora::test {

// A schedule's file as a failing disk or a careless copy may leave it: bits flipped anywhere, in
// the header, in the table of contents or in the heads of pages; pages lost, emptied, exchanged or
// written over others; the end cut off. Each time another damage, decided by `random` alone.
QByteArray damaged(const QByteArray& schedule, std::mt19937& random);

}  // namespace vellora::test
