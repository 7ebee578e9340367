#pragma once
// The two lists that components share: pointers in order, and lines of text.

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/persistent.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kx {

/// Pointers in order, none of them owned. An index outside 0..Count-1 raises ERangeError.
template <class T>
class TList {
public:
    virtual ~TList() = default;
    int GetCount() const { return static_cast<int>(FItems.size()); }
    T* GetItem(int Index) const { return FItems[CheckedIndex(Index, FItems.size())]; }
    /// Appends Item; returns its index.
    virtual int Add(T* Item) {
        FItems.push_back(Item);
        return GetCount() - 1;
    }
    /// Removes the first occurrence; returns the index it had, -1 when it was not there.
    virtual int Remove(T* Item) {
        const int index = IndexOf(Item);
        if (index >= 0) Delete(index);
        return index;
    }
    /// Inserts before Index, which may be Count.
    void Insert(int Index, T* Item) { FItems.insert(PlaceOf(Index, FItems.size() + 1), Item); }
    void Delete(int Index) { FItems.erase(PlaceOf(Index, FItems.size())); }
    void Clear() { FItems.clear(); }
    int IndexOf(const T* Item) const {
        for (int i = 0; i < GetCount(); ++i)
            if (FItems[static_cast<std::size_t>(i)] == Item) return i;
        return -1;
    }
    bool Contains(const T* Item) const { return IndexOf(Item) >= 0; }
    auto begin() const { return FItems.begin(); }
    auto end() const { return FItems.end(); }

protected:
    std::vector<T*> FItems;

private:
    auto PlaceOf(int Index, std::size_t Count) {
        return FItems.begin() + static_cast<std::ptrdiff_t>(CheckedIndex(Index, Count));
    }
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
