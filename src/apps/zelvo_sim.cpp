// zelvo-sim: the program's window on a simulated board, with a bench where chips go in and out of the socket.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <iostream>
#include <string>
#include <vector>

#include "apps/help.h"
#include "apps/probapad.h"
#include "apps/program_folder.h"
#include "apps/sim_machine.h"
#include "bench/board_text.h"
#include "bench/desk.h"
#include "platform/seams.h"
#include "qt/desktop.h"
#include "qt/main_window.h"
#include "ui/startup.h"

namespace {

using namespace zelvo;

constexpr int BadOptions = 2;

/// The board that a new installation's settings are made for, of the kind and at the address that port.ini of
/// the folder names.
QString BoardOfFolder(const QString& folder) {
  QFile file(QDir(folder).filePath(QStringLiteral("port.ini")));
  const QString text =
      file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readLine(64)).trimmed() : QString();
  const qsizetype comma = text.indexOf(QLatin1Char(','));
  const bool com = text.mid(comma + 1, 3) == QLatin1String("COM");
  const QString address = text.left(std::max<qsizetype>(comma, 0)).toUpper();
  bool read = false;
  const bool hexadecimal = address.startsWith(QLatin1String("&H"));
  const int base = hexadecimal ? address.mid(2).toInt(&read, 16) : address.toInt(&read);
  return QStringLiteral("%1 base=%2 inverted=%3")
      .arg(com ? QStringLiteral("com") : QStringLiteral("lpt"))
      .arg(read  ? base
           : com ? 0x3F8
                 : 0x378,
           0, 16)
      .arg(com ? QStringLiteral("pgc,input") : QStringLiteral("clock,data,input"));
}

bench::DescribedBoard DescribeBoard(const QString& description) {
  const std::string text = description.toStdString();
  std::vector<std::string_view> words;
  for (std::size_t at = 0; (at = text.find_first_not_of(' ', at)) != std::string::npos;) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.push_back(std::string_view(text).substr(at, end - at));
    at = end;
  }
  return bench::DescribeBoard(words);
}

int Fail(const std::string& reason) {
  std::cerr << "zelvo-sim: " << reason << '\n';
  return BadOptions;
}

}  // namespace

int main(int count, char** words) {
  QCommandLineParser options;
  options.setApplicationDescription(QStringLiteral("The window of zelvo on a simulated board."));
  options.addHelpOption();
  const QCommandLineOption folder(QStringLiteral("folder"), QStringLiteral("Folder of the settings files."),
                                  QStringLiteral("DIR"));
  const QCommandLineOption socket({QStringLiteral("socket"), QStringLiteral("chip")},
                                  QStringLiteral("Chip in the socket at the start."), QStringLiteral("NAME"));
  const QCommandLineOption board(
      QStringLiteral("board"),
      QStringLiteral(
          "The board as zelvo-bench takes it: \"lpt [manual] [KEY=VALUE ...]\", \"com [KEY=VALUE ...]\" or "
          "\"none\"; else one that fits the port.ini of the folder."),
      QStringLiteral("TEXT"));
  options.addOptions({folder, socket, board});
  desktop::TellHelpIfAsked(options, count, words);

  QApplication application(count, words);
  desktop::PrepareApplication(application);
  QApplication::setApplicationName(QStringLiteral("zelvo-sim"));
  options.process(application);

  const QString own = desktop::ProgramFolder(options.value(folder));
  if (own.isEmpty()) return Fail("no folder for the settings files");
  platform::programFolder = own.toStdString();
  bench::DescribedBoard described =
      DescribeBoard(options.isSet(board) ? options.value(board) : BoardOfFolder(own));
  if (!described.board) return Fail(described.refusal.value_or("no board"));

  desktop::SimMachine machine(std::move(described.board));
  bench::BenchSerial serial;
  platform::seams.ports = &machine;
  platform::seams.serial = &serial;

  desktop::Desktop desk;
  desktop::ObeyedDialogs dialogs(*platform::seams.dialogs, machine);
  platform::seams.dialogs = &dialogs;
  desktop::Probapad pad(machine);
  if (options.isSet(socket) && !pad.Insert(options.value(socket))) {
    return Fail("unknown chip " + options.value(socket).toStdString());
  }
  return desk.Run([&desk, &pad] {
    ui::StartUp();
    desk.Refresh();
    pad.ShowBeside(desk.Main());
  });
}
