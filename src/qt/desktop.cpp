#include "qt/desktop.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>

#include "panel/form1.h"
#include "qt/main_window.h"
#include "qt/secondary_window.h"
#include "qt/theme.h"

namespace zelvo::desktop {
namespace {
constexpr int DisplayFrame = 16;  // ms
}

Desktop::Desktop()
    : dialogs_([this] { Refresh(); }, [this] { return DialogOwner(); }),
      main_(std::make_unique<MainWindow>()) {
  platform::seams.pump = &pump_;
  platform::seams.timers = &pump_;
  platform::seams.delays = &pump_;
  platform::seams.dialogs = &dialogs_;
  platform::seams.clock = &clock_;
  panel::witnesses.push_back(this);
  refresh_.setTimerType(Qt::PreciseTimer);
  refresh_.setInterval(DisplayFrame);
  QObject::connect(&refresh_, &QTimer::timeout, main_.get(), [this] { Refresh(); });
  refresh_.start();
}

Desktop::~Desktop() {
  panel::witnesses.erase(std::remove(panel::witnesses.begin(), panel::witnesses.end(), this),
                         panel::witnesses.end());
}

int Desktop::Run(const std::function<void()>& startUp) {
  try {
    startUp();
  } catch (const platform::ProgramEnded&) {
    return 0;
  }
  if (!panel::MDIForm1.Loaded()) return 0;
  return QCoreApplication::exec();
}

void Desktop::WindowLoaded(panel::Window& window) {
  windowsChanged_ = true;
  const auto known = secondary_.find(&window);
  if (known != secondary_.end()) known->second->Reappear();
}

void Desktop::WindowUnloaded(panel::Window& window) {
  windowsChanged_ = true;
  if (&window != &panel::MDIForm1) return;
  main_->hide();
  QCoreApplication::exit(0);
}

void Desktop::WindowCalled(panel::Window& window) {
  const auto known = secondary_.find(&window);
  if (known != secondary_.end()) known->second->ComeForward();
}

void Desktop::Refresh() {
  if (!windowsChanged_ && drawn_ == panel::revision) return;
  windowsChanged_ = false;
  drawn_ = panel::revision;
  main_->Refresh();
  if (panel::MDIForm1.Loaded() && main_->isHidden()) main_->show();
  for (const auto& [window, view] : secondary_) {
    if (!window->Loaded()) view->Refresh();
  }
  // In the order of loading, so that the newest comes to the top.
  for (panel::Window* window : panel::LoadedWindows) {
    if (window == &panel::MDIForm1 || window == &panel::Form1) continue;
    SecondaryWindow*& view = secondary_[window];
    if (view == nullptr) view = new SecondaryWindow(*window, *main_);
    view->Refresh();
  }
}

QWidget* Desktop::DialogOwner() const {
  // The window that the operator is at, if it is one of the program's own and not a bench beside it.
  for (QWidget* window = QApplication::activeWindow(); window != nullptr; window = window->parentWidget()) {
    if (window == main_.get()) return QApplication::activeWindow();
  }
  return main_->isVisible() ? main_.get() : nullptr;
}

void PrepareApplication(QApplication& application) {
  QApplication::setApplicationName(QStringLiteral("zelvo"));
  QApplication::setQuitOnLastWindowClosed(false);
  QLocale::setDefault(QLocale(QLocale::Hungarian, QLocale::Hungary));
  auto* translator = new QTranslator(&application);
  if (translator->load(QStringLiteral("qtbase_hu"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(translator);
  }
  ApplyTheme(application);
  QApplication::setWindowIcon(ChipIcon());
}

}  // namespace zelvo::desktop
