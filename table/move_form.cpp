#include "table/move_form.h"

#include <QGridLayout>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "core/game.h"
#include "table/layout.h"
#include "table/table_view.h"

namespace {
constexpr int kMoveStep = 50;
constexpr int kTurnStep = 5;
constexpr double kZoomStep = 1.1;
}  // namespace

MoveForm::MoveForm(Game& game, TableView& view, QWidget* parent)
    : QDialog(parent), game_(game), view_(view) {
  setObjectName("frmMove");
  setWindowTitle("Table");
  auto* grid = new QGridLayout(this);
  auto button = [&](const char* name, const QString& text, int row, int col, auto action) {
    auto* b = new QPushButton(text);
    b->setObjectName(name);
    connect(b, &QPushButton::clicked, this, action);
    grid->addWidget(b, row, col);
  };
  button("cmdUp", QString::fromUtf8("\u2191 Up"), 0, 1, [this] { Shift(0, -kMoveStep); });
  button("cmdLeft", QString::fromUtf8("\u2190 Left"), 1, 0, [this] { Shift(-kMoveStep, 0); });
  button("cmdCenter", "&Center", 1, 1, [this] {
    view_.AutoSize();
    game_.roll.SessionDirty = true;
  });
  button("cmdRight", QString::fromUtf8("Right \u2192"), 1, 2, [this] { Shift(kMoveStep, 0); });
  button("cmdDown", QString::fromUtf8("\u2193 Down"), 2, 1, [this] { Shift(0, kMoveStep); });
  button("cmdTurnLeft", QString::fromUtf8("\u21ba Turn"), 0, 0, [this] { Turn(-kTurnStep); });
  button("cmdTurnRight", QString::fromUtf8("Turn \u21bb"), 0, 2, [this] { Turn(kTurnStep); });
  button("cmdZoomOut", QString::fromUtf8("\u2212 Smaller"), 2, 0, [this] { Zoom(1 / kZoomStep); });
  button("cmdZoomIn", "+ Larger", 2, 2, [this] { Zoom(kZoomStep); });
}

void MoveForm::Shift(int dx, int dy) { view_.MoveTable(dx, dy); }

void MoveForm::Turn(int degrees) {
  TableState& t = game_.table;
  // Turn about the middle of the window, so the table stays in place.
  const QPointF mid(view_.width() / 2.0, view_.height() / 2.0);
  const QPointF layoutMid = view_.LayoutToScreen().inverted().map(mid);
  t.TableRotation = ((t.TableRotation + degrees) % 360 + 360) % 360;
  const QPointF after = view_.LayoutToScreen().map(layoutMid);
  t.TableOffsetA += static_cast<int>(std::lround(mid.x() - after.x()));
  t.TableOffsetB += static_cast<int>(std::lround(mid.y() - after.y()));
  t.AutoSize = false;
  game_.roll.SessionDirty = true;
  view_.update();
}

void MoveForm::Zoom(double factor) {
  TableState& t = game_.table;
  const QPointF mid(view_.width() / 2.0, view_.height() / 2.0);
  const QPointF layoutMid = view_.LayoutToScreen().inverted().map(mid);
  t.TableZoom = std::clamp(static_cast<int>(std::lround(t.TableZoom * factor)), kTableZoomMin,
                           kTableZoomMax);
  const QPointF after = view_.LayoutToScreen().map(layoutMid);
  t.TableOffsetA += static_cast<int>(std::lround(mid.x() - after.x()));
  t.TableOffsetB += static_cast<int>(std::lround(mid.y() - after.y()));
  t.AutoSize = false;
  game_.roll.SessionDirty = true;
  view_.update();
}
