// What the statistics views share: a non-modal window over the game's
// tallies with the time frame list (cmbHand), the player list (lstPlayer)
// and its label (lblPlayer), the figure labels with their loss colours, and
// the File > Print item.
//
// A view keeps only the controls; the frame and the selection live in the
// game's ViewsState (a reference given when the list is made), and every
// figure comes from the stats library at each Refresh.
//
// What must stay true:
// - Filling the controls from the game (FormLoading) never writes back.
// - lstPlayer lists the seated players in slot order, each row carrying its
//   slot; a refresh after a roll keeps the rows (and their scroll) unless
//   someone sat down or left.
#pragma once

#include <QDialog>
#include <QString>
#include <cstdint>
#include <functional>
#include <map>

class QComboBox;
class QGridLayout;
class QLabel;
class QVBoxLayout;
class QListWidget;
class QMenuBar;
struct Game;
struct Shown;

// The loss and gain colours of the views' figures.
inline constexpr int kLossRgb[3] = {192, 0, 0};
inline constexpr int kGainRgb[3] = {0, 0, 192};

class StatsForm : public QDialog {
  Q_OBJECT
 public:
  // Fills the shared lists from the game, then the view's own figures.
  void Refresh();

 protected:
  StatsForm(Game& game, const char* name, const QString& caption, QWidget* parent);
  // The view's own figures and controls.
  virtual void ShowFigures() = 0;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

  // cmbHand with the five frames, kept in `frame`.
  QComboBox* MakeFrameList(std::int32_t& frame);
  // lstPlayer and lblPlayer, the selection kept in `players`.
  QListWidget* MakePlayerList(std::int32_t& players);
  QLabel* PlayerLabel() const { return playerLabel_; }
  // The side column every view opens with: "Time period:" over `frames`,
  // then "Players:" over `players` and the players label.
  QVBoxLayout* SelectionColumn(QComboBox* frames, QListWidget* players);
  // A double click on `label` runs `clear` and refreshes.
  void ClearOnDoubleClick(QLabel* label, std::function<void()> clear);
  // The form's menu bar with File > Print, which runs `print` on the game.
  QMenuBar* MakeMenuBar(bool (*print)(Game&));

  // A right-aligned figure box named `name`.
  static QLabel* MakeFigure(const char* name, int minWidth = 90);
  static QLabel* MakeFigure(const QString& name, int minWidth = 90);
  // Shows s in the label; `colored` draws it red below 0 and blue otherwise.
  static void SetShown(QLabel* label, const Shown& s, bool colored = false);
  // Colours a label's text red (loss) or blue.
  static void SetLossColor(QLabel* label, bool loss);
  // Adds a caption and its figure as a row of `grid`.
  static void AddRow(QGridLayout* grid, int row, const QString& caption, QLabel* figure);

  Game& game_;
  bool filling_ = false;

 private:
  void FillPlayerList();
  void ReadPlayerSelection();

  QComboBox* frameList_ = nullptr;
  std::int32_t* frame_ = nullptr;
  QListWidget* playerList_ = nullptr;
  QLabel* playerLabel_ = nullptr;
  std::int32_t* players_ = nullptr;
  std::map<QObject*, std::function<void()>> clearers_;
};
