#include "ui/base/theme.h"

#include <QApplication>
#include <QPalette>

namespace brovanta {

void ApplyTheme(QApplication& application) {
  application.setStyle(QStringLiteral("Fusion"));
  QPalette palette;
  palette.setColor(QPalette::Window, theme::kGround);
  palette.setColor(QPalette::WindowText, theme::kText);
  application.setPalette(palette);
}

}  // namespace brovanta
