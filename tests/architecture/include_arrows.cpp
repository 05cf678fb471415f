#include "architecture/include_arrows.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <stdexcept>

namespace vellora::test {
namespace {

// Folders that know no window, and the start of every header that would bring one.
const std::set<std::string> kWindowless{"routine", "store", "grid/sheet"};
const std::vector<std::string> kWindowHeaders{
    "QWidget", "QApplication", "QGuiApplication", "QPainter", "QColor", "QFont",  "QIcon",
    "QImage",  "QPixmap",      "QPrinter",        "QDialog",  "QLabel", "QWindow"};

// The innermost folder of the house that a path lies in; empty when there is none.
std::string folderOf(const House& house, const std::string& path) {
  std::string best;
  for (const auto& [folder, arrows] : house) {
    if (path.starts_with(folder + '/') && folder.size() > best.size()) best = folder;
  }
  return best;
}

void checkInclude(const House& house, const std::string& file, const std::string& included,
                  std::vector<std::string>& broken) {
  const std::string from = folderOf(house, file);
  const std::string to = folderOf(house, included);
  if (!to.empty() && !house.at(from).contains(to)) {
    broken.push_back(file + " may not include " + included);
  }
  const bool bringsWindow =
      std::any_of(kWindowHeaders.begin(), kWindowHeaders.end(),
                  [&](const std::string& header) { return included.starts_with(header); });
  if (kWindowless.contains(from) && bringsWindow) {
    broken.push_back(file + " may not know windows: " + included);
  }
}

// Walks includes depth first; a file met again while it is still open closes a circle.
class CircleSearch {
 public:
  explicit CircleSearch(const Includes& includes) : includes_(includes) {}

  void visit(const std::string& file) {
    if (done_.contains(file) || !includes_.contains(file)) return;
    const auto open = std::find(path_.begin(), path_.end(), file);
    if (open != path_.end()) return report(open);
    path_.push_back(file);
    for (const auto& next : includes_.at(file)) visit(next);
    path_.pop_back();
    done_.insert(file);
  }

  std::vector<std::string> circles;

 private:
  void report(std::vector<std::string>::const_iterator from) {
    std::string text = "circle of includes:";
    for (; from != path_.end(); ++from) text += ' ' + *from;
    circles.push_back(text);
  }

  const Includes& includes_;
  std::vector<std::string> path_;
  std::set<std::string> done_;
};

std::vector<std::string> includesOf(const QString& path) {
  static const QRegularExpression kInclude(uR"(^\s*#\s*include\s*["<]([^">]+)[">])"_qs);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read a source file");
  std::vector<std::string> found;
  QTextStream lines(&file);
  for (QString line; lines.readLineInto(&line);) {
    const auto match = kInclude.match(line);
    if (match.hasMatch()) found.push_back(match.captured(1).toStdString());
  }
  return found;
}

}  // namespace

House plannersHouse() {
  House house;
  house["routine"] = {};
  house["store"] = {"routine"};
  house["grid/sheet"] = {"routine"};
  house["grid/files"] = {"grid/sheet", "routine"};
  house["grid/surface"] = {"grid/files", "grid/sheet", "routine"};
  const std::set<std::string> ground{"grid/surface", "grid/files", "grid/sheet", "store",
                                     "routine"};
  house["shell"] = ground;
  for (const char* windows : {"board", "editors", "planning", "stats", "backup"}) {
    house[windows] = ground;
    house[windows].insert("shell");
    house["app"].insert(windows);
  }
  house["app"].insert(ground.begin(), ground.end());
  house["app"].insert("shell");
  for (auto& [folder, arrows] : house) arrows.insert(folder);
  return house;
}

Includes readIncludes(const std::string& folder) {
  Includes includes;
  const QString root = QString::fromStdString(folder);
  QDirIterator files(root, {u"*.h"_qs, u"*.cpp"_qs}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    includes[path.mid(root.size() + 1).toStdString()] = includesOf(path);
  }
  if (includes.empty()) throw std::runtime_error("no sources below " + folder);
  return includes;
}

std::vector<std::string> brokenArrows(const House& house, const Includes& includes) {
  std::vector<std::string> broken;
  CircleSearch search(includes);
  for (const auto& [file, included] : includes) {
    if (folderOf(house, file).empty()) {
      broken.push_back(file + " lies in no folder of the house");
      continue;
    }
    for (const auto& header : included) checkInclude(house, file, header, broken);
    search.visit(file);
  }
  broken.insert(broken.end(), search.circles.begin(), search.circles.end());
  return broken;
}

}  // namespace vellora::test
