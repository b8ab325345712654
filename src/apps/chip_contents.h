// What a simulated chip holds, as rows of sixteen bytes, for a list on the screen.
#pragma once

#include <QAbstractListModel>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace zelvo::desktop {

class ChipContents : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;
  using Image = std::map<std::uint32_t, std::uint8_t>;

  /// Takes over the locations that are not erased, by their Intel HEX addresses; `chip` tells what they mean.
  void Show(Image image, std::string_view chip);
  [[nodiscard]] std::size_t Size() const { return image_.size(); }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  [[nodiscard]] QString RowText(std::uint32_t address) const;

  bool pic18_ = true;
  Image image_;
  std::vector<std::uint32_t> rows_;  ///< addresses of the rows that hold something
};

}  // namespace zelvo::desktop
