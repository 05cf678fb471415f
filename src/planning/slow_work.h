#pragma once

#include "planning/plan_progress.h"

#include <QString>

class QWidget;

namespace vellora {

// Runs work that may take a while over a large plan: a window with a bar and a cancel button comes
// up when it is not over at once. The user can do nothing else meanwhile.
void runShowingProgress(QWidget* parent, const QString& title,
                        const std::function<void(const PlanProgress&)>& work);

}  // namespace vellora
