#pragma once

#include "terminal/services/MarketFeed.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QSlider>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace Terminal {

/// What drives the market that is played as far as its source can be driven, and what it is: its
/// mark, its clock, and how old the data is that the views show.
class TPlayerBar : public QToolBar {
  Q_OBJECT

public:
  /// Both outlive the bar.
  TPlayerBar(TMarketPlayer& player, const TMarketFeed& feed, QWidget* parent);

  void PlayOrPause();
  void SetTexts();

protected:
  void changeEvent(QEvent* event) override;

private:
  void BuildSpeeds();
  void BuildPosition();
  void BuildJumps();
  void FollowPlayer();
  void ShowState();
  void ShowSpeed();
  void ShowMark();
  void ShowSnapshots();
  void ShowSkippedLines();
  void ShowPosition(Text::TTimeOfDay position);
  void ShowAge();
  Text::TTimeOfDay SliderTime() const;

  TMarketPlayer& player_;
  const TMarketFeed& feed_;
  QLabel* mark_;
  QLabel* snapshots_; ///< how many were asked for; empty while quotes stream
  QToolButton* play_;
  QComboBox* speed_;
  QToolButton* jump_;
  QSlider* position_;
  QProgressBar* progress_;
  QLabel* clock_;
  QLabel* age_;
  QLabel* skipped_;
  QTimer ageTimer_;
};

} // namespace Terminal
