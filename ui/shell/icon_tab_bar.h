// The tab strip of the main screen: pictures only.
#pragma once

#include <QTabBar>

namespace brovanta {

/// Tabs of 56 x 28 each, whatever the font, with their pictures in the middle.
class IconTabBar : public QTabBar {
  Q_OBJECT

 public:
  explicit IconTabBar(QWidget* parent = nullptr);

  /// A tap into the strip above or below a tab counts as one on the tab: fingers are higher.
  void TakeTapsOf(QWidget& strip);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] QSize tabSizeHint(int index) const override;
  [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace brovanta
