#pragma once
// The two lists that components share: pointers in order, and lines of text.

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/order.h>
#include <kxgraph/platform/objects/persistent.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kx {

/// Pointers in order, none of them owned. An index outside 0..Count-1 raises ERangeError. Nothing looks at
/// all of them: an item or an index is found in logarithmic time.
template <class T>
class TList {
public:
    TList() = default;
    TList(const TList&) = delete;
    TList& operator=(const TList&) = delete;
    virtual ~TList() = default;
    int GetCount() const { return static_cast<int>(FOrder.GetCount()); }
    T* GetItem(int Index) const { return PlaceAt(Index).Item; }
    /// Appends Item; returns its index.
    virtual int Add(T* Item) {
        Enter(nullptr, Item);
        return GetCount() - 1;
    }
    /// Removes the first occurrence; returns the index it had, -1 when it was not there.
    virtual int Remove(T* Item) {
        const auto [index, place] = First(Item);
        if (index >= 0) Erase(place);
        return index;
    }
    /// Inserts before Index, which may be Count.
    void Insert(int Index, T* Item) {
        const std::size_t index = CheckedIndex(Index, FOrder.GetCount() + 1);
        Enter(index == FOrder.GetCount() ? nullptr : &FOrder.At(index), Item);
    }
    void Delete(int Index) {
        const TOrdered<T>& place = PlaceAt(Index);
        const auto [first, last] = FPlaces.equal_range(place.Item);
        Erase(std::find_if(first, last, [&](const auto& Entry) { return &Entry.second == &place; }));
    }
    void Clear() {
        FOrder.Clear();
        FPlaces.clear();
    }
    int IndexOf(const T* Item) const { return First(Item).first; }
    bool Contains(const T* Item) const { return FPlaces.contains(Item); }
    auto begin() const { return FOrder.begin(); }
    auto end() const { return FOrder.end(); }

private:
    using TPlaces = std::unordered_multimap<const T*, TOrdered<T>>;

    TOrdered<T>& PlaceAt(int Index) const { return FOrder.At(CheckedIndex(Index, FOrder.GetCount())); }
    void Enter(TOrderLink* Before, T* Item) { FOrder.Insert(Before, FPlaces.emplace(Item, Item)->second); }
    void Erase(typename TPlaces::const_iterator Place) {
        FOrder.Remove(const_cast<TOrdered<T>&>(Place->second));
        FPlaces.erase(Place);
    }
    /// The first occurrence and its index; -1 for none.
    std::pair<int, typename TPlaces::const_iterator> First(const T* Item) const {
        const auto [first, last] = FPlaces.equal_range(Item);
        std::pair<int, typename TPlaces::const_iterator> found{-1, last};
        for (auto place = first; place != last; ++place)
            if (const int index = static_cast<int>(place->second.Index());
                found.first < 0 || index < found.first)
                found = {index, place};
        return found;
    }

    TOrder<T> FOrder;
    TPlaces FPlaces;
};

/// Lines of text that can be read from and written to a file. Lines may hold any byte but CR and LF.
class TStrings : public TPersistent {
public:
    virtual int GetCount() const = 0;
    /// Raises ERangeError for an index outside 0..Count-1, as do PutLine and Delete.
    virtual const std::string& GetLine(int Index) const = 0;
    virtual void PutLine(int Index, std::string Line) = 0;
    /// Inserts before Index, which may be Count.
    virtual void Insert(int Index, std::string Line) = 0;
    virtual void Delete(int Index) = 0;
    virtual void Clear() = 0;
    /// Appends; returns the new line's index.
    int Add(std::string Line) {
        Insert(GetCount(), std::move(Line));
        return GetCount() - 1;
    }
    /// All lines, each followed by LF.
    std::string GetText() const;
    /// Replaces all lines; LF, CR LF and CR end a line. On failure the lines stay as they were.
    void SetText(std::string_view Text);
    /// Replaces all lines by those of a text file (see ReadTextFile). Raises EFileError; on failure the lines
    /// stay as they were.
    void LoadFromFile(const std::string& FileName);
    /// Replaces the file atomically; raises EFileError.
    void SaveToFile(const std::string& FileName) const;
    void Assign(const TPersistent& Source) override;

protected:
    /// Replaces all lines, or leaves them as they are and raises.
    virtual void SetLines(std::vector<std::string> Lines) = 0;
};

/// Lines held in memory.
class TStringList : public TStrings {
public:
    int GetCount() const override { return static_cast<int>(FLines.size()); }
    const std::string& GetLine(int Index) const override;
    void PutLine(int Index, std::string Line) override;
    void Insert(int Index, std::string Line) override;
    void Delete(int Index) override;
    void Clear() override { FLines.clear(); }

protected:
    void SetLines(std::vector<std::string> Lines) override { FLines = std::move(Lines); }

    std::vector<std::string> FLines;
};

} // namespace kx
