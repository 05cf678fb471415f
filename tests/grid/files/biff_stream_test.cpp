#include "grid/files/biff_stream.h"

#include "grid/files/shared_strings.h"

#include <QStringList>
#include <QtEndian>

#include <gtest/gtest.h>

namespace vellora {
namespace {

constexpr quint16 kContinue = 0x003C;
constexpr qsizetype kMaxBody = 8'224;

struct Record {
  quint16 id;
  QByteArray body;
};

std::vector<Record> recordsIn(const QByteArray& bytes) {
  std::vector<Record> records;
  for (qsizetype place = 0; place + 4 <= bytes.size();) {
    const auto id = qFromLittleEndian<quint16>(bytes.constData() + place);
    const auto size = qFromLittleEndian<quint16>(bytes.constData() + place + 2);
    records.push_back({id, bytes.mid(place + 4, size)});
    place += 4 + size;
  }
  return records;
}

// Reads a text that may go on in the records that follow.
QString textIn(const std::vector<Record>& records, std::size_t record, qsizetype place) {
  const char* header = records[record].body.constData() + place;
  const int size = qFromLittleEndian<quint16>(header);
  bool isWide = header[2] == 1;
  place += 3;
  QString text;
  while (text.size() < size) {
    const QByteArray& body = records[record].body;
    if (place == body.size() || (isWide && place + 1 == body.size())) {
      isWide = records[++record].body[0] == 1;
      place = 1;
      continue;
    }
    const char* unit = body.constData() + place;
    text += isWide ? QChar(qFromLittleEndian<quint16>(unit)) : QChar(QLatin1Char(*unit));
    place += isWide ? 2 : 1;
  }
  return text;
}

}  // namespace

TEST(BiffStream, PutsValuesInLittleEndianBetweenARecordsHeaderAndItsEnd) {
  BiffStream stream;
  stream.begin(0x0809);
  stream.put8(1);
  stream.put16(0x0203);
  stream.put32(0x04050607);
  stream.putReal(-2);
  stream.end();
  stream.record16(0x0022, 1);
  EXPECT_EQ(stream.bytes().toHex(' '),
            "09 08 0f 00 01 03 02 07 06 05 04 00 00 00 00 00 00 00 c0 22 00 02 00 01 00");
}

TEST(BiffStream, CutsNoValueAtARecordsEnd) {
  BiffStream stream;
  stream.begin(1);
  stream.putZeros(kMaxBody - 3);
  stream.put32(0x01020304);
  stream.end();
  const auto records = recordsIn(stream.bytes());
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].body.size(), kMaxBody - 3);
  EXPECT_EQ(records[1].id, kContinue);
  EXPECT_EQ(records[1].body.toHex(), "04030201");
}

TEST(BiffStream, ContinuesTextsAcrossRecordsWithoutCuttingACharacter) {
  for (const QString& text : {u"中😀文𠮷"_qs.repeated(3'000), QString(20'000, u'x')}) {
    for (int filler = 0; filler < 8; ++filler) {
      BiffStream stream;
      stream.begin(1);
      stream.putZeros(filler);
      stream.putText(text);
      stream.end();
      const auto records = recordsIn(stream.bytes());
      ASSERT_GE(records.size(), 3U);
      EXPECT_EQ(textIn(records, 0, filler), text);
      for (std::size_t next = 1; next < records.size(); ++next) {
        const QByteArray& body = records[next].body;
        EXPECT_LE(body.size(), kMaxBody);
        EXPECT_EQ(records[next].id, kContinue);
        if (body[0] != 1) continue;
        EXPECT_FALSE(QChar(qFromLittleEndian<quint16>(body.constData() + 1)).isLowSurrogate());
      }
    }
  }
}

TEST(SharedStrings, KeepEachTextOnceAndTellWhereEveryBucketBegins) {
  SharedStrings strings;
  QStringList texts;
  for (int number = 0; number < 3'000; ++number) texts << u"第%1条记录"_qs.arg(number);
  for (const QString& text : texts) strings.numberOf(text);
  EXPECT_EQ(strings.numberOf(texts[7]), 7U);
  BiffStream stream;
  strings.write(stream);
  const auto records = recordsIn(stream.bytes());
  EXPECT_EQ(qFromLittleEndian<quint32>(records[0].body.constData()), 3'001U);
  EXPECT_EQ(qFromLittleEndian<quint32>(records[0].body.constData() + 4), 3'000U);
  const QByteArray& index = records.back().body;
  const int bucket = qFromLittleEndian<quint16>(index.constData());
  ASSERT_EQ((index.size() - 2) / 8, (3'000 + bucket - 1) / bucket);
  for (int entry = 0; entry < (index.size() - 2) / 8; ++entry) {
    const auto place = qFromLittleEndian<quint32>(index.constData() + 2 + 8 * entry);
    const auto offset = qFromLittleEndian<quint16>(index.constData() + 6 + 8 * entry);
    const QString& text = texts[entry * bucket];
    EXPECT_EQ(qFromLittleEndian<quint16>(stream.bytes().constData() + place), text.size());
    const auto header = qFromLittleEndian<quint16>(stream.bytes().constData() + place - offset);
    EXPECT_EQ(header, place < kMaxBody ? 0x00FC : kContinue);
  }
}

}  // namespace vellora
