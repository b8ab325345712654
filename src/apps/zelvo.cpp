// zelvo: the program on the ports of a PC.
#include <QApplication>
#include <QCommandLineParser>
#include <iostream>

#include "apps/help.h"
#include "apps/program_folder.h"
#include "linux/board_idle.h"
#include "linux/idle_on_signals.h"
#include "linux/ports.h"
#include "platform/seams.h"
#include "qt/desktop.h"
#include "ui/startup.h"

int main(int count, char** words) {
  using namespace zelvo;
  QCommandLineParser options;
  options.setApplicationDescription(QStringLiteral("Programmer for PIC18F, PIC16F and PIC12F chips."));
  options.addHelpOption();
  const QCommandLineOption folder(QStringLiteral("folder"), QStringLiteral("Folder of the settings files."),
                                  QStringLiteral("DIR"));
  options.addOption(folder);
  desktop::TellHelpIfAsked(options, count, words);

  QApplication application(count, words);
  desktop::PrepareApplication(application);
  options.process(application);

  const QString own = desktop::ProgramFolder(options.value(folder));
  if (own.isEmpty()) {
    std::cerr << "zelvo: no folder for the settings files\n";
    return 2;
  }
  platform::programFolder = own.toStdString();

  linuxio::InstallIdleOnSignals();
  linuxio::PortContext context;
  context.programFolder = platform::programFolder;
  context.idleLevels = linuxio::IdleLevelsOfBoard;
  const auto table = linuxio::MakePortTable(context);
  const auto ports = linuxio::MakePorts(table);
  const auto serial = linuxio::MakeSerialClaim(table);
  platform::seams.ports = ports.get();
  platform::seams.serial = serial.get();

  desktop::Desktop desk;
  return desk.Run(ui::StartUp);
}
