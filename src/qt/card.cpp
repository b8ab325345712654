#include "qt/card.h"

#include <QLabel>
#include <QVBoxLayout>

#include "qt/theme.h"

namespace zelvo::desktop {

Card::Card(const QString& title, QWidget* parent)
    : QFrame(parent), title_(new QLabel(title, this)), body_(new QVBoxLayout(this)) {
  setProperty("card", true);
  title_->setProperty("title", true);
  const int line = LineHeight(*this);
  body_->setContentsMargins(line / 2, line / 3, line / 2, line / 2);
  body_->setSpacing(line / 3);
  body_->addWidget(title_);
  title_->setVisible(!title.isEmpty());
}

}  // namespace zelvo::desktop
