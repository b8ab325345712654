#include "qt/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>
#include <QWidget>
#include <algorithm>

namespace zelvo::desktop {
namespace {

QString Name(QRgb colour) {
  return QColor(colour).name();
}

// @h is a hair line. Other lengths stand as @1, @2, @16: so many eighths of a line of text.
constexpr auto Sheet = R"(
QFrame[card="true"] { background: %card; border: @hpx solid %border; border-radius: @3px; }
QLabel[title="true"] { color: %muted; font-weight: 600; }
QLabel[muted="true"] { color: %muted; }
QPushButton { background: %card; color: %ink; border: @hpx solid %border; border-radius: @2px;
              padding: @2px @4px; }
QPushButton:hover { background: %wash; border-color: %accent; }
QPushButton:pressed { background: %accent; color: %card; }
QPushButton:focus { border-color: %accent; color: %accent; }
QPushButton:pressed:focus { color: %card; }
QPushButton:disabled { background: %heading; color: %faint; border-color: %rule; }
QPushButton[role="strong"] { background: %accent; color: %card; border-color: %accent; font-weight: 600; }
QPushButton[role="strong"]:hover { background: %deep; }
QPushButton[role="strong"]:focus { border-color: %ink; color: %card; }
QPushButton[role="danger"] { color: %danger; border-color: %danger; font-weight: 600; }
QPushButton[role="danger"]:hover { background: %danger; color: %card; }
QPushButton[role="danger"]:disabled,
QPushButton[role="strong"]:disabled { background: %heading; color: %faint; border-color: %rule; }
QFrame[readout="true"] { background: %heading; color: %ink; border: @hpx solid %rule; border-radius: @1px;
                         padding: @hpx @2px; }
QFrame[readout="true"]:focus { border-color: %accent; }
QLineEdit { background: %card; border: @hpx solid %accent; border-radius: @1px; padding: @hpx @2px; }
QLineEdit[standing="true"] { border-color: %border; }
QLineEdit[standing="true"]:focus { border-color: %accent; }
QLineEdit[bit="true"] { selection-background-color: %wash; selection-color: %ink; }
QTableView, QListView { background: %card; border: @hpx solid %rule; border-radius: @1px;
                        selection-background-color: %wash; selection-color: %ink; }
QTableView:focus, QListView:focus { border-color: %accent; }
QHeaderView { background: %heading; border: none; }
QHeaderView::section { background: %heading; color: %muted; border: none; border-bottom: @hpx solid %border;
                       padding: @1px @hpx; }
QTabBar { background: transparent; }
QTabBar::tab { color: %muted; padding: @3px @16px; border: none; border-bottom: @1px solid transparent;
               font-weight: 600; }
QTabBar::tab:selected { color: %accent; border-bottom-color: %accent; }
QTabBar::tab:hover:!selected { color: %ink; border-bottom-color: %border; }
QTabBar::tab:focus { background: %wash; }
QProgressBar { background: %rule; border: none; border-radius: @2px; min-height: @6px; max-height: @6px; }
QProgressBar::chunk { background: %accent; border-radius: @2px; }
QSplitter::handle { background: transparent; }
QSplitter::handle:hover { background: %border; }
QScrollArea { border: none; background: transparent; }
QAbstractScrollArea::corner { background: transparent; border: none; }
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: @5px; }
QScrollBar:horizontal { height: @5px; }
QScrollBar::handle { background: %border; border-radius: @1px; margin: @hpx; }
QScrollBar::handle:vertical { min-height: @12px; }
QScrollBar::handle:horizontal { min-width: @12px; }
QScrollBar::handle:hover, QScrollBar::handle:pressed { background: %faint; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

QString SheetFor(const QFont& font) {
  const int line = QFontMetrics(font).height();
  QString sheet = QString::fromUtf8(Sheet);
  for (const int eighths : {16, 12, 6, 5, 4, 3, 2, 1}) {
    sheet.replace(QStringLiteral("@%1px").arg(eighths),
                  QStringLiteral("%1px").arg(std::max(1, line * eighths / 8)));
  }
  sheet.replace(QStringLiteral("@hpx"), QStringLiteral("%1px").arg(std::max(1, line / 16)));
  const std::pair<const char*, QRgb> names[] = {
      {"%card", colours::Card},       {"%border", colours::Border}, {"%rule", colours::Rule},
      {"%heading", colours::Heading}, {"%ink", colours::Ink},       {"%faint", colours::Faint},
      {"%muted", colours::Muted},     {"%accent", colours::Accent}, {"%wash", colours::AccentWash},
      {"%deep", 0xFF174C9E},          {"%danger", 0xFFB3261E},
  };
  for (const auto& [name, colour] : names) sheet.replace(QLatin1String(name), Name(colour));
  return sheet;
}

QPalette LightPalette() {
  QPalette palette{QColor(colours::Card), QColor(colours::Window)};
  palette.setColor(QPalette::Base, QColor(colours::Card));
  palette.setColor(QPalette::AlternateBase, QColor(colours::Heading));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, QColor(colours::Ink));
    palette.setColor(QPalette::Disabled, role, QColor(colours::Faint));
  }
  palette.setColor(QPalette::ToolTipBase, QColor(colours::Card));
  palette.setColor(QPalette::PlaceholderText, QColor(colours::Muted));
  palette.setColor(QPalette::Highlight, QColor(colours::Accent));
  palette.setColor(QPalette::HighlightedText, QColor(colours::Card));
  palette.setColor(QPalette::Link, QColor(colours::Accent));
  return palette;
}

}  // namespace

void ApplyTheme(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(LightPalette());
  application.setStyleSheet(SheetFor(QApplication::font()));
}

QFont MonospacedFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(QApplication::font().pointSizeF());
  return font;
}

QColor FromPanel(panel::Colour colour) {
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

void SetGround(QWidget& widget, panel::Colour colour) {
  QString sheet;
  if (colour != panel::White && colour != panel::WindowColour) {
    const QColor ground = FromPanel(colour);
    const QColor ink = qGray(ground.rgb()) > 127 ? QColor(colours::Ink) : QColor(colours::Card);
    sheet = QStringLiteral(".QListView, .QLabel, QLineEdit { background: %1; color: %2; border-color: %3; }")
                .arg(ground.name(), ink.name(), ground.darker(115).name());
  }
  if (widget.styleSheet() != sheet) widget.setStyleSheet(sheet);
}

QIcon ChipIcon() {
  QIcon icon;
  for (const int side : {16, 32, 48, 128}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 16.0, side / 16.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colours::Faint));
    for (const double pin : {3.5, 7.25, 11.0}) painter.drawRect(QRectF(1, pin, 14, 1.5));
    painter.setBrush(QColor(colours::Ink));
    painter.drawRoundedRect(QRectF(3.5, 1, 9, 14), 1.5, 1.5);
    painter.setBrush(QColor(colours::Accent));
    painter.drawEllipse(QPointF(8, 4.5), 1.5, 1.5);
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

int LineHeight(const QWidget& widget) {
  return widget.fontMetrics().height();
}

}  // namespace zelvo::desktop
