#include "apps/chip_contents.h"

#include <array>
#include <utility>

namespace zelvo::desktop {
namespace {

constexpr std::uint32_t RowBytes = 16;

struct Region {
  std::uint32_t from;
  const char* name;
};
/// Of an Intel HEX file, highest first.
using Regions = std::array<Region, 4>;
constexpr Regions Pic18Regions = {
    {{0xF00000, "EEPROM"}, {0x300000, "Config"}, {0x200000, "ID"}, {0, "Flash"}}};
constexpr Regions MidRangeRegions = {{{0x4200, "EEPROM"}, {0x400E, "Config"}, {0x4000, "ID"}, {0, "Flash"}}};

QString RegionOf(const Regions& regions, std::uint32_t address) {
  for (const Region& region : regions) {
    if (address >= region.from) return QLatin1String(region.name);
  }
  return {};
}

QString Hex(std::uint32_t value, int digits) {
  return QStringLiteral("%1").arg(value, digits, 16, QLatin1Char('0')).toUpper();
}

}  // namespace

void ChipContents::Show(Image image, std::string_view chip) {
  pic18_ = chip.starts_with("PIC18");
  std::vector<std::uint32_t> rows;
  for (const auto& [address, value] : image) {
    const std::uint32_t row = address - address % RowBytes;
    if (rows.empty() || rows.back() != row) rows.push_back(row);
  }
  if (rows != rows_) {
    // Rows come and go one after the other while a chip is written: tell of what joins at the end, so that
    // a reader who scrolled somewhere stays there.
    const auto before = static_cast<int>(rows_.size());
    const auto after = static_cast<int>(rows.size());
    const bool grown = after > before;
    if (grown) beginInsertRows({}, before, after - 1);
    if (after < before) beginRemoveRows({}, after, before - 1);
    rows_ = std::move(rows);
    image_ = std::move(image);
    if (grown) endInsertRows();
    if (after < before) endRemoveRows();
  } else {
    image_ = std::move(image);
  }
  if (!rows_.empty()) emit dataChanged(index(0), index(static_cast<int>(rows_.size()) - 1));
}

int ChipContents::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ChipContents::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  return role == Qt::DisplayRole && row < rows_.size() ? RowText(rows_[row]) : QVariant();
}

QString ChipContents::RowText(std::uint32_t address) const {
  QString text = RegionOf(pic18_ ? Pic18Regions : MidRangeRegions, address).leftJustified(7) +
                 Hex(address, 6) + QLatin1Char(' ');
  for (std::uint32_t offset = 0; offset < RowBytes; ++offset) {
    const auto byte = image_.find(address + offset);
    text += byte == image_.end() ? QStringLiteral(" ··") : QLatin1Char(' ') + Hex(byte->second, 2);
  }
  return text;
}

}  // namespace zelvo::desktop
