#include <kxgraph/platform/objects/order.h>

#include "support/testing.h"

#include <kxgraph/platform/objects/lists.h>

namespace kx::test::order {

TEST(Order, KnowsIndicesAndNeighboursWhateverComesAndGoes) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t Count) { return std::size_t(random() % Count); };
    std::vector<int> things(300);
    std::vector<std::unique_ptr<TOrdered<int>>> links;
    for (int& thing : things) links.push_back(std::make_unique<TOrdered<int>>(&thing));
    TOrder<int> order;
    std::vector<TOrdered<int>*> expected;
    for (int step = 0; step < 6000; ++step) {
        TOrdered<int>& link = *links[below(step % 1500 < 900 ? links.size() : 5)];
        if (link.IsLinked()) {
            expected.erase(expected.begin() + std::ptrdiff_t(link.Index()));
            order.Remove(link);
        } else {
            const std::size_t place = below(expected.size() + 1);
            order.Insert(place == expected.size() ? nullptr : expected[place], link);
            expected.insert(expected.begin() + std::ptrdiff_t(place), &link);
        }
        ASSERT_EQ(order.GetCount(), expected.size());
        std::vector<int*> forwards;
        for (int* thing : order) forwards.push_back(thing);
        ASSERT_EQ(forwards.size(), expected.size()) << step;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(forwards[i], expected[i]->Item) << step;
            ASSERT_EQ(&order.At(i), expected[i]) << step;
            ASSERT_EQ(expected[i]->Index(), i) << step;
            ASSERT_EQ(expected[i]->Previous(), i ? expected[i - 1] : nullptr) << step;
        }
    }
}

TEST(List, AnswersAsAnArrayDoesWithOneItemSeveralTimes) {
    std::mt19937 random(8);
    const auto below = [&](std::size_t Count) { return int(random() % Count); };
    std::vector<int> items(6);
    TList<int> list;
    std::vector<int*> expected;
    for (int step = 0; step < 4000; ++step) {
        int* const item = &items[std::size_t(below(items.size()))];
        const int at = below(expected.size() + 1);
        const auto place = std::ranges::find(expected, item);
        const int index = place == expected.end() ? -1 : int(place - expected.begin());
        ASSERT_EQ(list.IndexOf(item), index);
        switch (below(expected.size() < 20 ? 3 : 5)) {
        case 0: expected.push_back(item), list.Add(item); break;
        case 1: expected.insert(expected.begin() + at, item), list.Insert(at, item); break;
        case 2:
        case 3:
            if (index >= 0) expected.erase(place);
            ASSERT_EQ(list.Remove(item), index);
            break;
        default:
            if (at < int(expected.size())) expected.erase(expected.begin() + at), list.Delete(at);
        }
        ASSERT_EQ(std::vector<int*>(list.begin(), list.end()), expected) << step;
    }
}

} // namespace kx::test::order
