#pragma once
// Cities that the user has chosen: finding, adding, ordering and removing them.

#include <QObject>
#include <functional>
#include <memory>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/time/TimeModel.h"
#include "core/time/Cities.h"

namespace ambrel {

struct FoundCityRow {
  Q_GADGET
  QML_VALUE_TYPE(foundCityRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name, detail);  // "San Francisco", "United States, 6:41 AM"
  FACE_FIELDS(bool, isChosen);         // it is in the list

  bool operator==(const FoundCityRow&) const = default;
};

class CityList : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* results READ results CONSTANT FINAL)
  // Why there are none: "No city of that name"; empty when there are, or nothing is looked for.
  Q_PROPERTY(QString note READ note NOTIFY searched FINAL)
  Q_PROPERTY(bool isFull READ isFull NOTIFY changed FINAL)

 public:
  static constexpr std::size_t mostCities = 24;

  using Load = std::function<std::vector<City>()>;
  using Save = std::function<void(const std::vector<City>&)>;

  // `load` gives what is stored, or what stands in for it; `save` stores what the user has chosen.
  CityList(TimeSeams seams, Load load, Save save, QObject* parent = nullptr);

  // Loaded when they are first asked for: the names of cities take their time.
  const std::vector<City>& cities();
  // What is stored was changed.
  void reload();
  RowList* results() { return &results_; }
  const QString& note() const { return note_; }
  bool isFull() { return cities().size() >= mostCities; }

  Q_INVOKABLE void search(const QString& text);
  Q_INVOKABLE void add(const QString& rowId);
  Q_INVOKABLE void addFirst();
  Q_INVOKABLE void remove(const QString& rowId);
  Q_INVOKABLE void moveUp(const QString& rowId);

  // What a row of the city is known by.
  QString idOf(const City& city) const;

 Q_SIGNALS:
  void changed();
  void searched();

 private:
  void take(std::vector<City> next);
  std::vector<City>::const_iterator find(const QString& rowId);

  TimeSeams seams_;
  Load load_;
  Save save_;
  bool isLoaded_ = false;
  std::vector<City> cities_;
  std::unique_ptr<CityIndex> index_;  // made for the first search, in the locale of then
  std::vector<CityIndex::Found> found_;
  GadgetListModel<FoundCityRow> results_;
  QString text_, note_;
};

}  // namespace ambrel
