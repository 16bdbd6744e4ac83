#pragma once
// The fields of a gadget that QML reads: each is a member and a property of its name.
//
//   struct WaterFace {
//     Q_GADGET
//    public:
//     FACE_FIELDS(QString, title, detail);  // up to eight of one type, at their zero or empty value
//     FACE_FIELD(int, band, -1);            // with its first value
//     bool operator==(const WaterFace&) const = default;
//   };

#define FACE_FIELD(type, name, ...)       \
  Q_PROPERTY(type name MEMBER name FINAL) \
 public:                                  \
  type name { __VA_ARGS__ }
#define FACE_FIELDS(type, ...) AMBREL_FACE_COUNTED(__VA_ARGS__, 8, 7, 6, 5, 4, 3, 2, 1, )(type, __VA_ARGS__)

// moc takes no loop over arguments, so there is one macro for each count.
#define AMBREL_FACE_COUNTED(a, b, c, d, e, f, g, h, count, ...) AMBREL_FACE_##count
#define AMBREL_FACE_1(type, name) FACE_FIELD(type, name)
#define AMBREL_FACE_2(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_1(type, __VA_ARGS__)
#define AMBREL_FACE_3(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_2(type, __VA_ARGS__)
#define AMBREL_FACE_4(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_3(type, __VA_ARGS__)
#define AMBREL_FACE_5(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_4(type, __VA_ARGS__)
#define AMBREL_FACE_6(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_5(type, __VA_ARGS__)
#define AMBREL_FACE_7(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_6(type, __VA_ARGS__)
#define AMBREL_FACE_8(type, name, ...) \
  FACE_FIELD(type, name);              \
  AMBREL_FACE_7(type, __VA_ARGS__)
