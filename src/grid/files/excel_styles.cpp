#include "grid/files/excel_styles.h"

#include "grid/files/exported_sheet.h"
#include "grid/files/file_error.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr unsigned kFirstIndex = 8;

// As red, green, blue.
constexpr std::array<unsigned, ExcelPalette::kSize> kStandard{
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,
    0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,
    0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,
    0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

int distance(PackedColour one, PackedColour other) {
  const int red = redOf(one) - redOf(other);
  const int green = greenOf(one) - greenOf(other);
  const int blue = blueOf(one) - blueOf(other);
  return red * red + green * green + blue * blue;
}

constexpr quint16 kFont = 0x0031;
constexpr quint16 kFormat = 0x00E0;  // XF
constexpr quint16 kStyle = 0x0293;
constexpr quint16 kPalette = 0x0092;

// By tradition four fonts and fifteen style formats come first, and there is no font 4.
constexpr int kBasicFonts = 4;
constexpr int kFirstOwnFont = 5;
constexpr int kStyleFormats = ExcelStyles::kPlainFormat;
constexpr int kMaxFonts = 500;
constexpr int kMaxFormats = 4'000;

constexpr quint16 kAutomaticColour = 0x7FFF;
constexpr quint8 kChineseCharset = 134;
constexpr quint16 kNumberFormatGeneral = 0;
constexpr quint16 kNumberFormatText = 49;
constexpr quint16 kNoFill = 64U | 65U << 7U;

QByteArray fontRecord(const CellFont& font, quint16 colour) {
  BiffStream stream;
  stream.begin(kFont);
  stream.put16(static_cast<quint16>(std::clamp(font.size, 1, 409) * 20));
  stream.put16(0);
  stream.put16(colour);
  stream.put16(isBold(font) ? 700 : 400);
  stream.put32(0);  // neither raised nor underlined, no family
  stream.put8(kChineseCharset);
  stream.put8(0);
  stream.putShortText(QStringView(font.face).left(31));
  stream.end();
  return stream.bytes();
}

quint8 alignmentOf(const CellStyle& style) {
  unsigned across = 0;
  if ((style.align & kAlignLeft) != 0) across = 1;
  if ((style.align & kAlignCentre) != 0) across = 2;
  if ((style.align & kAlignRight) != 0) across = 3;
  unsigned down = 1;
  if ((style.align & kAlignTop) != 0) down = 0;
  if ((style.align & kAlignBottom) != 0) down = 2;
  return static_cast<quint8>(across | (style.wrap ? 8U : 0U) | down << 4U);
}

unsigned lineOf(const CellStyle& style) {
  if (!style.border || style.borderWidth <= 0) return 0;
  constexpr unsigned kThin = 1;
  constexpr unsigned kMedium = 2;
  constexpr unsigned kThick = 5;
  if (style.borderWidth == 1) return kThin;
  return style.borderWidth == 2 ? kMedium : kThick;
}

void writeBasicFormat(BiffStream& stream, bool isStyle, bool isFirst) {
  stream.begin(kFormat);
  stream.put32(0);
  stream.put16(isStyle ? 0xFFF5 : 0x0001);
  stream.put8(0x20);
  stream.put16(0);
  stream.put8(isStyle && !isFirst ? 0xF4 : 0);
  stream.putZeros(8);
  stream.put16(kNoFill);
  stream.end();
}

constexpr quint16 kSst = 0x00FC;
constexpr quint16 kExtSst = 0x00FF;
constexpr std::size_t kMinBucket = 8;
constexpr std::size_t kMaxBuckets = 128;

}  // namespace

std::array<PackedColour, ExcelPalette::kSize> ExcelPalette::standardColours() {
  std::array<PackedColour, kSize> packed{};
  std::transform(kStandard.begin(), kStandard.end(), packed.begin(),
                 [](unsigned rgb) { return (rgb & 0xFFU) << 16U | (rgb & 0xFF00U) | rgb >> 16U; });
  return packed;
}

unsigned ExcelPalette::indexOf(PackedColour colour) {
  colour &= 0xFF'FFFFU;
  std::size_t place = nearest(colour);
  if (colours_[place] != colour) {
    // From the end: the first colours are the ones that people know.
    const auto free = std::find(taken_.rbegin(), taken_.rend(), false);
    if (free != taken_.rend()) {
      place = static_cast<std::size_t>(taken_.rend() - free) - 1;
      colours_[place] = colour;
    }
  }
  taken_[place] = true;
  return kFirstIndex + static_cast<unsigned>(place);
}

std::size_t ExcelPalette::nearest(PackedColour colour) const {
  const auto found = std::min_element(colours_.begin(), colours_.end(),
                                      [colour](PackedColour one, PackedColour other) {
                                        return distance(one, colour) < distance(other, colour);
                                      });
  return static_cast<std::size_t>(found - colours_.begin());
}

int ExcelStyles::Records::numberOf(const QByteArray& record) {
  const auto found = numbers.constFind(record);
  if (found != numbers.constEnd()) return *found;
  const int next = static_cast<int>(numbers.size());
  numbers.insert(record, next);
  bytes.append(record);
  return next;
}

quint16 ExcelStyles::formatOf(int col, int row) {
  const auto style = static_cast<std::size_t>(sheet_.StyleNumberAt(col, row));
  if (style >= known_.size()) known_.resize(style + 1);
  if (known_[style] == 0) known_[style] = makeFormat(col, row);
  return known_[style];
}

quint16 ExcelStyles::makeFormat(int col, int row) {
  const int number = formats_.numberOf(formatRecord(sheet_.StyleAt(col, row)));
  if (number >= kMaxFormats || fonts_.numbers.size() > kMaxFonts) {
    throw FileError(u"表格的单元格样式太多，Excel 文件放不下。"_qs);
  }
  return static_cast<quint16>(kPlainFormat + 1 + number);
}

quint16 ExcelStyles::fontOf(const CellStyle& style) {
  const auto colour = style.hasColours ? static_cast<quint16>(palette_.indexOf(style.textColour))
                                       : kAutomaticColour;
  return static_cast<quint16>(kFirstOwnFont + fonts_.numberOf(fontRecord(style.font, colour)));
}

QByteArray ExcelStyles::formatRecord(const CellStyle& style) {
  const unsigned line = lineOf(style);
  const unsigned lineColour = line == 0 ? 0 : palette_.indexOf(style.borderColour);
  const unsigned solid = style.hasColours ? 1U << 26U : 0;
  BiffStream stream;
  stream.begin(kFormat);
  stream.put16(fontOf(style));
  stream.put16(style.option == 1 ? kNumberFormatText : kNumberFormatGeneral);
  stream.put16(0x0001);  // a cell format below the first style
  stream.put8(alignmentOf(style));
  stream.put16(0);
  stream.put8(0xFC);  // says everything itself
  stream.put32(line * 0x1111U | lineColour << 16U | lineColour << 23U);
  stream.put32(lineColour | lineColour << 7U | solid);
  stream.put16(style.hasColours
                   ? static_cast<quint16>(palette_.indexOf(style.backColour) | 65U << 7U)
                   : kNoFill);
  stream.end();
  return stream.bytes();
}

bool ExcelStyles::showsWhenEmpty(int col, int row) const {
  const CellStyle& style = sheet_.StyleAt(col, row);
  return style.hasColours || lineOf(style) != 0;
}

void ExcelStyles::writeFonts(BiffStream& stream) const {
  const CellFont basic{u"宋体"_qs, 12, kFontRegular};
  for (int font = 0; font < kBasicFonts; ++font) stream.append(fontRecord(basic, kAutomaticColour));
  stream.append(fonts_.bytes);
}

void ExcelStyles::writeFormats(BiffStream& stream) const {
  for (int format = 0; format < kStyleFormats; ++format) {
    writeBasicFormat(stream, true, format == 0);
  }
  writeBasicFormat(stream, false, false);
  stream.append(formats_.bytes);
  stream.begin(kStyle);
  stream.put16(0x8000);  // built in, format 0
  stream.put8(0);
  stream.put8(0xFF);
  stream.end();
}

void ExcelStyles::writePalette(BiffStream& stream) const {
  stream.begin(kPalette);
  stream.put16(ExcelPalette::kSize);
  for (const PackedColour colour : palette_.colours()) stream.put32(colour);
  stream.end();
}

quint32 SharedStrings::numberOf(quint32 sheetNumber, const QString& text) {
  ++uses_;
  if (sheetNumber >= numbers_.size()) numbers_.resize(sheetNumber + std::size_t{1});
  quint32& number = numbers_[sheetNumber];
  if (number == 0 || sheetNumber == 0) {
    texts_.push_back(text);
    number = static_cast<quint32>(texts_.size());
  }
  return number - 1;
}

void SharedStrings::write(BiffStream& stream, const WorkProgress& progress) const {
  const std::size_t bucket = std::max(kMinBucket, texts_.size() / kMaxBuckets + 1);
  std::vector<BiffStream::Place> buckets;
  stream.begin(kSst);
  stream.put32(uses_);
  stream.put32(static_cast<quint32>(texts_.size()));
  for (std::size_t number = 0; number < texts_.size(); ++number) {
    reportRow(progress, u"正在写入 Excel 文件的文本……"_qs, static_cast<qint64>(number),
              std::ssize(texts_));
    const BiffStream::Place place = stream.putText(exportedText(texts_[number]));
    if (number % bucket == 0) buckets.push_back(place);
  }
  stream.end();
  stream.begin(kExtSst);
  stream.put16(static_cast<quint16>(bucket));
  for (const BiffStream::Place& place : buckets) {
    stream.put32(place.position);
    stream.put16(place.offset);
    stream.put16(0);
  }
  stream.end();
}

}  // namespace vellora
