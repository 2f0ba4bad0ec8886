// frmConfigure, the Colors tab: the colour of each part of the layout
// (red, green and blue bars, or a swatch of the palette), the spotlight on
// the felt, and the eight ready-made skins. Every change goes to the table's
// colours at once and the table behind the form is drawn again.

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "core/platform.h"
#include "table/configure_form.h"
#include "table/table_colors.h"

namespace {

constexpr int kPaletteColumns = 12;
constexpr int kSwatchSize = 22;
const char* const kChannelCaption[3] = {"Red", "Green", "Blue"};

QString SwatchStyle(const QColor& c) {
  return QString("background: %1; border: 1px solid #404040;").arg(c.name());
}

}  // namespace

QWidget* ConfigureForm::BuildColors() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  auto* left = new QVBoxLayout;
  auto* parts = new QGroupBox("Table colors");
  auto* pl = new QVBoxLayout(parts);
  auto* partGroup = new QButtonGroup(parts);
  for (int i = 0; i < kTableParts; ++i) {
    auto* opt = new QRadioButton(kTablePartCaption[i]);
    opt->setObjectName(QString("optTableColors%1").arg(i));
    partGroup->addButton(opt, i);
    connect(opt, &QRadioButton::toggled, this, [this, i](bool on) {
      if (!on) return;
      colorPart_ = i;  // which part the bars and swatches colour
      FillColors();
    });
    pl->addWidget(opt);
  }
  left->addWidget(parts);
  auto* light = new QGroupBox("Spotlight");
  auto* ll = new QHBoxLayout(light);
  for (int i = 0; i < 2; ++i) {
    auto* opt = new QRadioButton(i == 0 ? " On" : " Off");
    opt->setObjectName(QString("optSpotlight%1").arg(i));
    connect(opt, &QRadioButton::toggled, this, [this, i](bool on) {
      if (!on || FormLoading) return;
      SetTableSpotlight(game_.table, i == 0);
      ColorsChanged();
    });
    ll->addWidget(opt);
  }
  left->addWidget(light);
  auto* skins = new QPushButton("Ready-made s&kins");
  skins->setObjectName("cmdSkins");
  skins->setAutoDefault(false);
  auto* menu = new QMenu(skins);
  menu->setObjectName("mnuOptions");
  for (int n = 1; n <= kTableSkins; ++n) {
    QAction* a = menu->addAction(kTableSkin[n - 1].caption);
    a->setObjectName(kTableSkin[n - 1].menuName);
    a->setCheckable(true);
    connect(a, &QAction::triggered, this, [this, n] {
      ApplyTableSkin(game_.table, n);
      ColorsChanged();
    });
  }
  skins->setMenu(menu);
  left->addWidget(skins);
  left->addStretch();
  layout->addLayout(left);

  auto* right = new QVBoxLayout;
  auto* mix = new QGroupBox("Color");
  auto* ml = new QGridLayout(mix);
  auto* shown = new QLabel;
  shown->setObjectName("picColorShown");
  shown->setMinimumSize(64, 64);
  ml->addWidget(shown, 0, 2, 3, 1);
  for (int ch = 0; ch < 3; ++ch) {
    rgb_[ch] = new QSlider(Qt::Horizontal);
    rgb_[ch]->setObjectName(QString("hsbColor%1").arg(ch));
    rgb_[ch]->setRange(0, 255);
    rgb_[ch]->setMinimumWidth(200);
    auto* value = new QLabel;
    value->setObjectName(QString("lblColor%1").arg(ch));
    value->setMinimumWidth(28);
    connect(rgb_[ch], &QSlider::valueChanged, this, [this, value](int v) {
      value->setNum(v);
      if (FormLoading) return;
      const QColor c(rgb_[0]->value(), rgb_[1]->value(), rgb_[2]->value());
      SetTablePartColor(game_.table, colorPart_, ValueFromColor(c));
      ColorsChanged();
    });
    ml->addWidget(new QLabel(kChannelCaption[ch]), ch, 0);
    auto* row = new QHBoxLayout;
    row->addWidget(rgb_[ch]);
    row->addWidget(value);
    ml->addLayout(row, ch, 1);
  }
  right->addWidget(mix);
  auto* palette = new QGroupBox("Palette (click to use, right-click to keep the color shown)");
  auto* grid = new QGridLayout(palette);
  grid->setSpacing(3);
  for (int i = 0; i < kPaletteCells; ++i) {
    auto* swatch = new QToolButton;
    swatch->setObjectName(QString("picColorpal%1").arg(i));
    swatch->setFixedSize(kSwatchSize, kSwatchSize);
    swatch->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(swatch, &QToolButton::clicked, this, [this, i] {
      SetTablePartColor(game_.table, colorPart_, game_.table.PaletteColor[i]);
      ColorsChanged();
    });
    connect(swatch, &QToolButton::customContextMenuRequested, this, [this, i] {
      game_.table.PaletteColor[i] = game_.table.LayoutColor[colorPart_];
      ColorsChanged();
    });
    grid->addWidget(swatch, i / kPaletteColumns, i % kPaletteColumns);
  }
  right->addWidget(palette);
  right->addStretch();
  layout->addLayout(right);
  return page;
}

void ConfigureForm::ColorsChanged() {
  game_.roll.SessionDirty = true;
  if (game_.platform != nullptr) game_.platform->RequestRedraw(Redraw::Table);
  FillColors();
}

void ConfigureForm::FillColors() {
  const bool was = FormLoading;
  FormLoading = true;
  const TableState& t = game_.table;
  findChild<QRadioButton*>(QString("optTableColors%1").arg(colorPart_))->setChecked(true);
  const QColor c = ColorFromValue(t.LayoutColor[colorPart_]);
  rgb_[0]->setValue(c.red());
  rgb_[1]->setValue(c.green());
  rgb_[2]->setValue(c.blue());
  findChild<QLabel*>("picColorShown")->setStyleSheet(SwatchStyle(c));
  for (int i = 0; i < kPaletteCells; ++i)
    findChild<QToolButton*>(QString("picColorpal%1").arg(i))
        ->setStyleSheet(SwatchStyle(ColorFromValue(t.PaletteColor[i])));
  findChild<QRadioButton*>(t.Spotlight ? "optSpotlight0" : "optSpotlight1")->setChecked(true);
  for (int n = 1; n <= kTableSkins; ++n)
    findChild<QAction*>(kTableSkin[n - 1].menuName)->setChecked(t.TablePreset == n);
  FormLoading = was;
}
