#pragma once

#include <QObject>

#include <functional>

namespace vellora {

class GridSurface;
struct ApplicationState;

// How large the board shows its texts: at first as large as every row has room for, then as the
// user likes, by Ctrl and the wheel, Ctrl++, Ctrl+- and Ctrl+0, which fits them in again. What the
// user chose is remembered.
class BoardZoom : public QObject {
  Q_OBJECT

 public:
  // `say` tells the user what was chosen. To be gone before the grid is.
  BoardZoom(GridSurface& grid, const ApplicationState& state,
            const std::function<void(const QString& message)>& say);

  // To be called when the number of rows has changed.
  void fit();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void choose(int percent);  // 0: what fits
  void step(int direction);
  int fitting() const;

  GridSurface& grid_;
  const ApplicationState& state_;
  std::function<void(const QString& message)> say_;
  int percent_;  // 0: what fits
};

}  // namespace vellora
