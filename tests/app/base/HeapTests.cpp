#include <QTest>
#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "app/base/Heap.h"

namespace ambrel {
namespace {

// Bytes of blocks that were asked of the system one by one; 0 where the heap does not tell.
std::size_t bytesByThemselves() {
#ifdef __GLIBC__
  return mallinfo2().hblkhd;
#else
  return 0;
#endif
}

}  // namespace

class HeapTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aLargeBlockGoesBackHoweverOftenThereWasOne() {
    constexpr std::size_t large = 8 << 20;
    void* volatile probe = std::malloc(2 * large);
    const bool tells = bytesByThemselves() >= 2 * large;
    std::free(probe);
    if (!tells) QSKIP("this heap does not tell");
    returnLargeBlocks();
    for (int i = 0; i < 3; ++i) {
      const std::size_t before = bytesByThemselves();
      void* volatile block = std::malloc(large);
      QVERIFY(bytesByThemselves() >= before + large);
      std::free(block);
      QCOMPARE(bytesByThemselves(), before);
    }
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::HeapTests)
#include "HeapTests.moc"
