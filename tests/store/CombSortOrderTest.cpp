#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "store/SortIndex.h"

namespace {

// The comb sort done on the keys themselves: the order every faster path must give.
std::vector<int> Reference(std::vector<std::string> keys, bool descending) {
    int n = static_cast<int>(keys.size());
    std::vector<int> order(keys.size());
    for (int i = 0; i < n; ++i) order[static_cast<std::size_t>(i)] = i;
    int gap = n;
    bool swapped;
    do {
        gap = static_cast<int>(std::floor(gap / 1.3));
        if (gap == 0) gap = 1;
        if (gap == 9 || gap == 10) gap = 11;
        swapped = false;
        for (int i = 0; i < n - gap; ++i) {
            auto& a = keys[static_cast<std::size_t>(i)];
            auto& b = keys[static_cast<std::size_t>(i + gap)];
            if (descending ? b.compare(a) > 0 : a.compare(b) > 0) {
                std::swap(a, b);
                std::swap(order[static_cast<std::size_t>(i)], order[static_cast<std::size_t>(i + gap)]);
                swapped = true;
            }
        }
    } while (gap != 1 || swapped);
    return order;
}

}  // namespace

TEST(CombSortOrder, GivesTheCombSortsOrderForShortAndLongKeysWithAndWithoutTies) {
    struct Case { std::size_t width; int n; int letters; bool unique; };
    // Few letters make ties and long shared prefixes; unique keys end in a number.
    const Case cases[] = {{1, 2, 2, false},  {3, 50, 3, false},   {14, 3000, 4, true}, {14, 3000, 2, false},
                          {16, 700, 2, true}, {17, 700, 2, true},  {17, 700, 2, false}, {28, 2000, 3, true},
                          {28, 400, 1, false}, {40, 1, 26, true}};
    std::mt19937 random(7);
    for (const Case& c : cases)
        for (bool descending : {false, true}) {
            SCOPED_TRACE(testing::Message() << "width " << c.width << ", n " << c.n << ", descending " << descending);
            std::vector<std::string> keys;
            std::string laid;
            for (int i = 0; i < c.n; ++i) {
                std::string k(c.width, ' ');
                for (char& ch : k) ch = static_cast<char>('A' + random() % static_cast<unsigned>(c.letters));
                if (c.unique) {
                    std::string num = std::to_string(100000 + i);
                    k.replace(c.width - std::min(c.width, num.size()), std::min(c.width, num.size()), num, 0,
                              std::min(c.width, num.size()));
                }
                keys.push_back(k);
                laid += k + "#";   // a stride one longer than the key
            }
            EXPECT_EQ(Reference(keys, descending),
                      CombSortOrder(laid.data(), c.width + 1, c.width, c.n, descending));
        }
}
