// The object list: appending, a loop over a snapshot, sorting through a comparator, finding. Floors do the
// same to bare arrays of pointers; the sort's floor sorts copied-out keys.
#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/support/Bench.h"
#include "core/DefaultObjectComparator.h"
#include "core/IObjectPredicate.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"

namespace {

using namespace vestrel;

class Item : public Object {
 public:
  VESTREL_OBJECT(Item)
  explicit Item(std::int32_t number) : value(number) {}
  const std::int32_t value;
};

// Objects with random numbers, in the memory order in which they were made: those of a kind lie together, so
// that who walks over one does not fetch the others with it.
struct Objects {
  explicit Objects(std::int64_t size) : numbers(static_cast<std::size_t>(size)) {
    std::generate(numbers.begin(), numbers.end(), std::mt19937(1));
    for (const std::int32_t number : numbers) items.push_back(MakeRef<Item>(number));
    for (const std::int32_t number : numbers) shared.push_back(std::make_shared<std::int32_t>(number));
    for (const std::int32_t number : numbers) boxes.push_back(BoxLong(number));
    for (const Ref<Item>& item : items) raw.push_back(item.get());
    for (Object* item : raw) list->AddItem(item);
    for (const Ref<clsLong>& box : boxes) boxList->AddItem(box.get());
  }

  std::vector<std::int32_t> numbers;
  std::vector<Ref<Item>> items;
  std::vector<Object*> raw;
  std::vector<std::shared_ptr<std::int32_t>> shared;
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  std::vector<Ref<clsLong>> boxes;
  Ref<clsObjectList> boxList = MakeRef<clsObjectList>();
};

class IsNever : public IObjectPredicate {
 public:
  VESTREL_OBJECT(IsNever, IObjectPredicate)
  bool IsTrueFor(Object* obj) override { return obj == nullptr; }
};

void AddAppend(const std::shared_ptr<Objects>& objects, std::int64_t size) {
  auto list = std::make_shared<Ref<clsObjectList>>();
  bench::Add(bench::Case{"list append", "Vestrel", size, size,
                         [=] {
                           clsObjectList& to = **list;
                           for (Object* item : objects->raw) to.AddItem(item);
                         },
                         [=] { *list = MakeRef<clsObjectList>(); }});
  auto vector = std::make_shared<std::vector<std::shared_ptr<std::int32_t>>>();
  bench::Add(bench::Case{"list append", "vector of shared_ptr", size, size,
                         [=] {
                           auto& to = *vector;
                           for (const auto& item : objects->shared) to.push_back(item);
                         },
                         [=] { *vector = {}; }});
  auto raw = std::make_shared<std::vector<Object*>>();
  bench::Add(bench::Case{"list append", "floor (vector of pointers)", size, size,
                         [=] {
                           auto& to = *raw;
                           for (Object* item : objects->raw) to.push_back(item);
                         },
                         [=] { *raw = {}; }});
}

void AddSnapshot(const std::shared_ptr<Objects>& objects, std::int64_t size) {
  bench::Add(bench::Case{"list snapshot loop", "Vestrel", size, size, [=] {
                           std::int64_t sum = 0;
                           for (Object* item : objects->list->Snapshot())
                             sum += static_cast<Item*>(item)->value;
                           bench::Keep(sum);
                         }});
  bench::Add(bench::Case{"list snapshot loop", "Vestrel's iterator", size, size, [=] {
                           std::int64_t sum = 0;
                           const Ref<clsIterator> iterator = objects->list->BeginIter();
                           while (iterator->hasNext()) {
                             sum += static_cast<Item*>(iterator->iterValue().get())->value;
                           }
                           bench::Keep(sum);
                         }});
  bench::Add(bench::Case{"list snapshot loop", "a copy that counts each", size, size, [=] {
                           std::int64_t sum = 0;
                           const std::vector<Ref<Item>> copy = objects->items;
                           for (const Ref<Item>& item : copy) sum += item->value;
                           bench::Keep(sum);
                         }});
  bench::Add(bench::Case{"list snapshot loop", "floor (raw pointers)", size, size, [=] {
                           std::int64_t sum = 0;
                           for (Object* item : objects->raw) sum += static_cast<Item*>(item)->value;
                           bench::Keep(sum);
                         }});
}

void AddSort(const std::shared_ptr<Objects>& objects, std::int64_t size) {
  auto comparator = std::make_shared<Ref<IObjectComparator>>(MakeRef<DefaultObjectComparator>());
  auto list = std::make_shared<Ref<clsObjectList>>();
  bench::Add(bench::Case{"list sort", "Vestrel", size, size, [=] { (*list)->SortInPlace(comparator.get()); },
                         [=] {
                           *list = MakeRef<clsObjectList>();
                           (*list)->ExtendWith(objects->boxList.get());
                         }});
  auto copy = std::make_shared<std::vector<clsLong*>>();
  const auto refill = [=] {
    copy->clear();
    for (const Ref<clsLong>& box : objects->boxes) copy->push_back(box.get());
  };
  bench::Add(bench::Case{"list sort", "std::sort", size, size,
                         [=] {
                           std::sort(copy->begin(), copy->end(), [&](clsLong* a, clsLong* b) {
                             return (*comparator)->Compare(a, b) < 0;
                           });
                         },
                         refill});
  using Keyed = std::pair<std::int32_t, clsLong*>;
  bench::Add(bench::Case{"list sort", "floor (keys copied out)", size, size,
                         [=] {
                           std::vector<Keyed> keyed;
                           keyed.reserve(copy->size());
                           for (clsLong* box : *copy) keyed.emplace_back(box->value(), box);
                           std::sort(keyed.begin(), keyed.end(),
                                     [](const Keyed& a, const Keyed& b) { return a.first < b.first; });
                           for (std::size_t i = 0; i < keyed.size(); ++i) (*copy)[i] = keyed[i].second;
                         },
                         refill});
}

void AddFind(const std::shared_ptr<Objects>& objects, std::int64_t size) {
  auto absent = std::make_shared<Ref<Object>>(MakeRef<Item>(0));
  auto never = std::make_shared<Ref<IObjectPredicate>>(MakeRef<IsNever>());
  bench::Add(bench::Case{"list find object", "Vestrel", size, size,
                         [=] { bench::Keep(objects->list->FindObject(absent->get())); }});
  bench::Add(bench::Case{"list find object", "floor (std::find)", size, size, [=] {
                           bench::Keep(std::find(objects->raw.begin(), objects->raw.end(), absent->get()));
                         }});
  bench::Add(bench::Case{"list find by predicate", "Vestrel", size, size,
                         [=] { bench::Keep(objects->list->FirstIndexWhere(never->get())); }});
  bench::Add(bench::Case{"list find by predicate", "floor (find_if, virtual call)", size, size, [=] {
                           bench::Keep(std::find_if(objects->raw.begin(), objects->raw.end(),
                                                    [&](Object* item) { return (*never)->IsTrueFor(item); }));
                         }});
}

}  // namespace

void AddCases() {
  using bench::Kind;
  constexpr std::int64_t kMillion = 1000000;
  const std::vector<std::int64_t> sizes = bench::Quick()
                                              ? std::vector<std::int64_t>{kMillion}
                                              : std::vector<std::int64_t>{100, 1000, 10000, 100000, kMillion};
  for (const std::int64_t size : sizes) {
    const auto objects = std::make_shared<Objects>(size);
    AddAppend(objects, size);
    AddSnapshot(objects, size);
    AddSort(objects, size);
    AddFind(objects, size);
  }
  const auto claim = [](const char* figure, const char* what, const char* other, Kind kind, double factor,
                        const char* ours = "Vestrel") {
    bench::Add(bench::Claim{figure, what, kMillion, other, kind, factor, ours});
  };
  claim("append to a list, 1M, each", "list append", "vector of shared_ptr", Kind::AtMostTimes, 0.85);
  claim("append to a list, 1M, each", "list append", "floor (vector of pointers)", Kind::Shown, 0);
  claim("loop over a snapshot, 1M, each", "list snapshot loop", "floor (raw pointers)", Kind::AtMostTimes,
        1.15);
  claim("loop over a snapshot, 1M, each", "list snapshot loop", "a copy that counts each", Kind::Shown, 0);
  claim("loop with an iterator, 1M, each", "list snapshot loop", "a copy that counts each", Kind::Shown, 0,
        "Vestrel's iterator");
  claim("sort through a comparator, 1M, each", "list sort", "std::sort", Kind::AtMostTimes, 0.9);
  claim("sort through a comparator, 1M, each", "list sort", "floor (keys copied out)", Kind::Shown, 0);
  claim("find an object, 1M, each", "list find object", "floor (std::find)", Kind::Shown, 0);
  claim("find by predicate, 1M, each", "list find by predicate", "floor (find_if, virtual call)", Kind::Shown,
        0);
}
