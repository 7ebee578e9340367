#pragma once
// The storage format of the package: INI text held in memory as a list of lines, with typed readers and
// writers. Which keys a class keeps is told by the class (Kxoutfit.h has the tables for it).
//
// A section begins with the line "[name]" (no blanks inside or around) and ends before the next line that
// begins with "["; a value stands in a line Ident=value (no blanks trimmed, the rest of the line is the
// value); sections are separated by empty lines. Names ignore the case of ASCII letters; of two sections of
// one name the first counts. Real numbers are always written with a point.

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/persist/Kxiniindex.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/lists.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kx {

class TFont;
class TForm;
class TKxAreaStyle;
class TKxLineStyle;

/// A value does not hold the numbers that its reader needs. The message is that of the number that is
/// missing.
class EIniError : public Exception {
public:
    EIniError(const std::string& Message, std::string_view Section, std::string_view Ident)
        : Exception(Message), FSection(Section), FIdent(Ident) {}
    const std::string& GetSection() const { return FSection; }
    const std::string& GetIdent() const { return FIdent; }

private:
    std::string FSection, FIdent;
};

class TKxIniList;

/// Has something to write into a store that nobody may ever read, and so does it late.
class TKxLateWriter {
public:
    virtual ~TKxLateWriter() = default;
    virtual void WriteLate(TKxIniList& Ini) = 0;
};

/// An INI store in memory, not bound to a file. Its lines can also be reached as those of any string list.
///
/// Keyed operations do not scan the lines (a writer that looks past headers takes a step for each). Lines are
/// found by their number at once when they are asked for one after the other, else in logarithmic time.
///
/// A missing section or key leaves the target of a reader as it is, or gives its Default.
/// Values must not hold CR or LF: they would come back from a file as lines of their own.
/// When memory runs out in a writer of one key, the store is as it was before.
class TKxIniList : public TStringList {
public:
    /// Whether anything was written or erased. Set by every writer and by EraseSection, not by the operations
    /// of a string list; never reset by the list itself.
    bool Modified = false;

    /// Writer writes before anybody reads or changes anything here, after those that wait already; it must
    /// not go before. One that fails, for lack of memory, waits on.
    void WriteLater(TKxLateWriter& Writer);
    void DoNotWait(TKxLateWriter& Writer) { std::erase(FLate, &Writer); }

    // Sections.

    /// Adds, for each line that begins with "[", the text up to the first "]"; an empty text if there is
    /// none.
    void ReadSections(TStrings& Strings) const;
    bool SectionExists(std::string_view Section) const;
    /// Replaces Strings by the key name of every line of the section that is not empty; an empty name for a
    /// line without "=".
    void ReadSection(std::string_view Section, TStrings& Strings) const;
    /// The same with whole lines.
    void ReadSectionValues(std::string_view Section, TStrings& Strings) const;
    /// Deletes the header and its lines, the empty ones included. Nothing happens without such a section.
    void EraseSection(std::string_view Section);

    // Single values.

    /// The reader looks as far as the next line that begins with "[", that line included.
    std::string ReadString(std::string_view Section, std::string_view Ident, std::string_view Default) const;
    /// Replaces the key's line, or adds one in front of the first empty line behind the header. A new section
    /// is added at the end: an empty line, the header, the key. The line is cut at a character of code 0.
    ///
    /// Kept: the writer looks as far as the first empty line, past headers. In a file made by hand, without
    /// empty lines between sections, a new key lands in the last of them, and a key of that name in a later
    /// section is overwritten. Files of other versions rely on where lines go.
    void WriteString(std::string_view Section, std::string_view Ident, std::string_view Value);
    /// The first integer of the value: "12abc" gives 12. Default for a malformed value.
    std::int32_t ReadInteger(std::string_view Section, std::string_view Ident, std::int32_t Default) const;
    void WriteInteger(std::string_view Section, std::string_view Ident, std::int32_t Value);
    /// "1" and "true" (in any case) are true, anything else is false; Default for an empty value.
    bool ReadBool(std::string_view Section, std::string_view Ident, bool Default) const;
    void WriteBool(std::string_view Section, std::string_view Ident, bool Value);
    /// The first real of the value, in point form: "1,5" gives 1. Default for a malformed value.
    double ReadReal(std::string_view Section, std::string_view Ident, double Default) const;
    /// 14 significant digits; INF, -INF or NAN, which all readers of reals take as these words, too.
    void WriteReal(std::string_view Section, std::string_view Ident, double X);
    /// Shortened to fit into Digits characters.
    void WriteRealDigits(std::string_view Section, std::string_view Ident, double X, std::int16_t Digits);

    // Several numbers in one value, joined by ";". The readers raise EIniError "Error during integer
    // extraction" when the text holds too few numbers (those read until then are stored), but ReadRealVector.

    /// Values[0] to Values[High]; an empty value for a High of -1.
    void ReadRealArray(std::string_view Section, std::string_view Ident, double* Values, int High) const;
    void WriteRealArray(std::string_view Section, std::string_view Ident, const double* Values, int High);
    /// Replaces the values by all that can be read; the vector is cleared in any case.
    void ReadRealVector(std::string_view Section, std::string_view Ident, TKxRealVector& Vector) const;
    void WriteRealVector(std::string_view Section, std::string_view Ident, const TKxCustomRealVector& Vector);
    /// Fills the elements that Array has. Kept: with more elements than numbers the last number, when it ends
    /// the text, is read again for each of them.
    void ReadIntArray(std::string_view Section, std::string_view Ident, const TKxIntegerArray& Array) const;
    /// Raises ERangeError "The array to be written is empty".
    void WriteIntArray(std::string_view Section, std::string_view Ident, const TKxIntegerArray& Array);
    void ReadRealPos(std::string_view Section, std::string_view Ident, TKxRealPos& Pos) const;
    void WriteRealPos(std::string_view Section, std::string_view Ident, const TKxRealPos& Pos);
    /// Replaces the values of both by the two numbers of each line of the section that is not empty
    /// ("1.5;2.25" or "1.5 2.25"). Without such a section the reading starts at the first line of the store.
    void ReadXYVector(std::string_view Section, TKxRealVector& X, TKxRealVector& Y) const;

    // Objects, each as several keys Ident + ".Color" and so on. The readers apply each value through its
    // setter; what is missing or no value of its enumeration stays.

    void ReadFont(std::string_view Section, std::string_view Ident, TFont& Font) const;
    void WriteFont(std::string_view Section, std::string_view Ident, const TFont& Font);
    void ReadLine(std::string_view Section, std::string_view Ident, TKxLineStyle& Style) const;
    void WriteLine(std::string_view Section, std::string_view Ident, const TKxLineStyle& Style);
    void ReadArea(std::string_view Section, std::string_view Ident, TKxAreaStyle& Style) const;
    void WriteArea(std::string_view Section, std::string_view Ident, const TKxAreaStyle& Style);
    /// Window state and normal bounds. A form that would lie wholly off the screen is centred.
    void ReadFormPrms(std::string_view Section, std::string_view Ident, TForm& Form) const;
    void WriteFormPrms(std::string_view Section, std::string_view Ident, const TForm& Form);
    /// Top and left alone, as with ReadFormPrms.
    void ReadFormPos(std::string_view Section, std::string_view Ident, TForm& Form) const;

    // References, as the path of names from the form down: "MainForm.Graph1".

    /// An empty value for null and for a component without a name.
    void WriteComponentRef(std::string_view Section, std::string_view Ident, const TComponent* Component);
    /// Sets Component when the path leads, from the application object on, to a component of class T.
    template <class T>
    void ReadComponentRef(std::string_view Section, std::string_view Ident, T*& Component) const {
        if (auto* found = dynamic_cast<T*>(FindComponentRef(Section, Ident))) Component = found;
    }
    /// The component that the path leads to; null when there is none.
    TComponent* FindComponentRef(std::string_view Section, std::string_view Ident) const;

    int GetCount() const override { return Lines().GetCount(); }
    const std::string& GetLine(int Index) const override { return Lines().PlaceAt(Index)->Text; }
    void PutLine(int Index, std::string Line) override { Lines().ReplaceAt(Index, std::move(Line)); }
    void Insert(int Index, std::string Line) override { Lines().InsertAt(Index, std::move(Line)); }
    void Delete(int Index) override { Lines().DeleteAt(Index); }
    void Clear() override { Lines().Clear(); }

protected:
    void SetLines(std::vector<std::string> Lines) override;
    void DeleteLeadingEmptyLines();

private:
    void AppendSection(std::string_view Section, std::string Line);

    TKxIniLines& Lines() const {
        if (!FLate.empty()) WriteLate();
        return FStore;
    }
    void WriteLate() const;

    mutable TKxIniLines FStore; // instead of the lines of the base class
    mutable std::vector<TKxLateWriter*> FLate;
};

/// A store bound to one file, read when it is made and written when it is destroyed; the file is never open
/// in between. One object serves one load-change-save cycle.
class TKxLargeIniFile : public TKxIniList {
public:
    /// A missing file gives an empty store, and so does one that is there and cannot be read, see LoadError.
    explicit TKxLargeIniFile(std::string FileName);
    /// Saves. An error goes to the application's HandleException: a destructor must not raise. Call Save
    /// before to have it raised.
    ~TKxLargeIniFile() override;

    const std::string& GetFileName() const { return FFileName; }
    /// Why the file, which exists, could not be read; empty when it was read whole or is missing. Such a
    /// store can be used, but is never saved: that would replace what stands in the file.
    const std::string& GetLoadError() const { return FLoadError; }
    /// If Modified: deletes the empty lines at the beginning, replaces the file atomically (with the
    /// byte-order mark that it had) and resets Modified. Raises EFileError, also where there is a LoadError;
    /// Modified and the file then stay as they were.
    void Save();

private:
    void Load();

    std::string FFileName, FLoadError;
    bool FHasMark = false;
};

} // namespace kx
