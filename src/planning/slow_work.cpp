#include "planning/slow_work.h"

#include <QElapsedTimer>
#include <QProgressDialog>

namespace vellora {
namespace {

constexpr int kPatience = 50;  // milliseconds without a bar
constexpr int kRefresh = 20;   // milliseconds between two looks at the cancel button

}  // namespace

void runShowingProgress(QWidget* parent, const QString& title,
                        const std::function<void(const PlanProgress&)>& work) {
  QProgressDialog dialog(title, u"取消"_qs, 0, 1, parent);
  dialog.setWindowModality(Qt::WindowModal);
  dialog.setMinimumDuration(kPatience);
  dialog.setValue(0);
  QElapsedTimer sinceRefresh;
  sinceRefresh.start();
  work([&](int done, int total) {
    if (sinceRefresh.elapsed() < kRefresh) return true;
    sinceRefresh.restart();
    if (dialog.maximum() != total) dialog.setMaximum(total);
    dialog.setValue(done);
    return !dialog.wasCanceled();
  });
}

}  // namespace vellora
