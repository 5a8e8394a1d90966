/// \file XmlObjectBase.h
/// The root of everything that can be written and read: generated classes, collections, open
/// elements and attributes.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/engine/EventSink.h>
#include <ZqXmlLib9/engine/SmartPtr.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <atomic>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace ZqXmlLib9Data {
class CAttributeInfo;
class CElementInfo;
}  // namespace ZqXmlLib9Data

namespace ZqXmlLib9 {

class CElement;
class CTextStream;
class CXmlCollectionBase;
class CXmlElement;
class CXmlWriter;

/// An argument that C++ would turn into a `bool` though it was meant for another parameter.
template <typename T>
concept MistakenForBool = std::is_enum_v<T> || std::is_pointer_v<std::decay_t<T>>;

/// Makes `ToXmlFile` write what it doesn't compress while the text grows, so that the document is
/// never in memory as a whole. Off at first; process-wide.
ZQXMLLIB9_API void AsyncToXmlFile(bool async) noexcept;

/// A reference-counted object of the model, with the entry points of the library.
///
/// It is made with a count of 0 and lives once a `CSmartPtr` or an `AddRef` holds it; parents hold
/// their children, and no child holds its parent. The count is atomic, so holders on different
/// threads may share an object; everything else is for one thread at a time.
///
/// Every entry point first makes sure that generated code of this library's version is registered,
/// and shows a message box and throws `CZqException` "Wrong Version (...)" if it isn't. Failures
/// below come as a chain of `CZqValidationException`, one link for each element level.
/// A failed read leaves the object with what was stored up to the failure.
class ZQXMLLIB9_API CXmlObjectBase : public IEventSink {
protected:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override;

public:
    /// The object itself, as its base class.
    virtual CXmlObjectBase* GetBase() = 0;

    /// Writes the object to a file, which is replaced if it is there. It stays as it was where it
    /// can't be opened, and where the object fails to become a document before the file is opened,
    /// as it does without `AsyncToXmlFile`. After any later failure the file is empty, so that no
    /// part of a document is taken for the whole of it; a pipe or a device has what it was sent.
    ///
    /// A file of UTF-16 begins with the mark FF FE. Where it is compressed, that mark stands in
    /// front of the gzip octets: this library skips it, other tools don't.
    /// \throws CZqException  "ZLIB Compression only available for To Stream methods.", before
    ///         anything else; "Failed to write data to the file [%s] error [0x%08X]", or with
    ///         `AsyncToXmlFile` "Failed to write data to the file. Error [0x%08X]", with errno;
    ///         else as `ToXmlStream`. With `AsyncToXmlFile` a failure of the file or of half a
    ///         surrogate pair may also be the innermost of a chain of `CZqValidationException`
    virtual void ToXmlFile(
        const char16_t* fileName, bool writeHeader = true, bool format = true,
        XmlEncoding encoding = XmlEncoding_UTF8, EOLType eol = EOLType_LF,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
        CompressionType compression = CompressionType_None) const;

    /// Writes the object to a file as Fast Infoset. What becomes of the file is as in `ToXmlFile`.
    /// \throws CZqException  "ZLIB Compression only available for To Stream methods.", before
    ///         anything else; "Failed to write data to the file [%s] error [0x%08X]", with errno;
    ///         else as `ToFastInfosetStream`
    virtual void ToFastInfosetFile(
        const char16_t* fileName, FInfoDecl declaration = FInfoDecl_None,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
        CompressionType compression = CompressionType_None) const;

    /// Writes the object as a document in memory.
    /// \param writeHeader  whether the XML declaration stands in front; it names no encoding
    /// \param format       whether elements stand on lines of their own, indented by tabs
    /// \throws CZqException  the object doesn't fit its content model, is nested deeper than the
    ///         context allows, or generated code of another version is registered
    virtual std::u16string ToXml(bool writeHeader = true, bool format = true,
                                 EOLType eol = EOLType_LF,
                                 const CXmlSerializationContext& context =
                                     CXmlSerializationContext::GetDefaultContext()) const;

    /// Writes the object as a document in octets, which have no mark.
    /// \param compression  the compressed form has to fit into the length of the document, so that
    ///                     a short one fails
    /// \throws CZqException  as `ToXml`; "Unknown Encoding, select UTF-8 (contact support ...",
    ///         where the encoding is none or unknown; "Failed to compress data. [Error Code: %d]"
    /// \throws CZqInvalidValueException  half a surrogate pair in text that has to be UTF-8
    virtual CBinaryData ToXmlStream(
        bool writeHeader = true, bool format = true, XmlEncoding encoding = XmlEncoding_UTF8,
        EOLType eol = EOLType_LF,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
        CompressionType compression = CompressionType_None) const;

    /// Writes the object as a Fast Infoset document (ITU-T X.891) in octets.
    /// \param declaration  the XML declaration in front, which the standard allows
    /// \param compression  as for `ToXmlStream`
    /// \throws CZqException  as `ToXml`; "Failed to write FastInfoset. ..." where a value doesn't
    ///         fit the encoding that the context has for its type; "Failed to compress data. [Error
    ///         Code: %d]"
    virtual CBinaryData ToFastInfosetStream(
        FInfoDecl declaration = FInfoDecl_None,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
        CompressionType compression = CompressionType_None) const;

    /// Reads the object from a file. The root's name becomes that of the object; nothing compares
    /// it.
    /// \throws CZqException  the file can't be read, is not well-formed ("%s at line %d"), or
    ///         doesn't fit the content model; the messages are those of `CXmlDocument::Load`
    virtual void FromXmlFile(
        const char16_t* fileName,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());

    /// Reads the object from text. A declaration in it names UTF-16 or no encoding.
    /// \throws CZqException  as `FromXmlFile`, without the failures of a file
    virtual void FromXml(const char16_t* text, const CXmlSerializationContext& context =
                                                   CXmlSerializationContext::GetDefaultContext());

    /// Reads the object from octets that end with a NUL, in the encoding that their declaration
    /// names, UTF-8 without one.
    /// \throws CZqException  as `FromXmlFile`, without the failures of a file
    virtual void FromXml(const char* text, const CXmlSerializationContext& context =
                                               CXmlSerializationContext::GetDefaultContext());

    /// Reads the object from octets.
    /// \throws CZqException  as `FromXmlFile`, without the failures of a file
    virtual void FromXmlStream(
        const CBinaryData& data,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());

    /// \param length  in octets
    virtual void FromXmlStream(
        unsigned char* const data, std::uint32_t length,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());

    /// Reads the object from an open element, by way of its text under the default context.
    /// \throws CZqInvalidParamException  the element is null
    /// \throws CZqException              as `FromXml`
    virtual void FromXmlElement(
        const CElement* element,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());

    /// Reads the object from an element of a tree, which stays the caller's.
    /// \throws CZqInvalidParamException  the element is null
    /// \throws CZqValidationException    it doesn't fit the content model
    virtual void FromXmlElement(
        const CXmlElement* element,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());

protected:
    virtual ~CXmlObjectBase();

    /// The namespace in which the entry points write this object as the root.
    virtual std::u16string GetTargetNamespace() const = 0;

public:
    /// The namespace that is handed to the records of the children on reading.
    virtual std::u16string GetNamespace() const = 0;

protected:
    virtual void AttributesToXml_Int(CXmlWriter* writer,
                                     const CXmlSerializationContext& context) const;

    /// Writes this object.
    /// \param isRoot            true only from an entry point
    /// \param namespaceUri      the namespace of this element as its parent sees it
    /// \param isOptionalChoice  a choice class may then be empty
    virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                           const CXmlSerializationContext& context,
                           bool isOptionalChoice) const = 0;

    /// Reads this object.
    /// \param parent  the element whose content is read
    /// \param cursor  the next child of it that is not consumed yet, or null
    /// \return the new cursor
    virtual CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                                     const CXmlSerializationContext& context,
                                     bool isOptionalChoice) = 0;

public:
    CXmlObjectBase(const CXmlObjectBase& other);
    /// Takes the element name; the count of each object is its own.
    CXmlObjectBase& operator=(const CXmlObjectBase& other);

    /// \return the new count
    std::int32_t AddRef() const noexcept;
    /// Destroys the object at 0. However deep a structure of objects is, its destruction needs
    /// little stack: beyond 64 nested destructions on a thread, further ones wait in a queue.
    /// \return the new count
    std::int32_t Release() const noexcept;

    CXmlObjectBase* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

    /// Octets of any kind of pointer and length.
    /// \throws CZqOverFlowException  4 GiB or more
    void FromXmlStream(
        std::span<const std::byte> data,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());
    template <Octet TOctet, LengthOf<TOctet> TLength>
    void FromXmlStream(
        TOctet* data, TLength length,
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext())
    {
        FromXmlStream(ToOctets(data, ToLength32(length)), context);
    }

    /// \name Refused, since an enum or a pointer would become a `bool` without a word
    /// @{
    template <MistakenForBool T, typename... TRest>
    void ToXmlFile(const char16_t*, T, TRest&&...) const = delete;
    template <MistakenForBool T, typename... TRest>
    void ToXmlFile(const char16_t*, bool, T, TRest&&...) const = delete;
    template <MistakenForBool T, typename... TRest>
    std::u16string ToXml(T, TRest&&...) const = delete;
    template <MistakenForBool T, typename... TRest>
    std::u16string ToXml(bool, T, TRest&&...) const = delete;
    template <MistakenForBool T, typename... TRest>
    CBinaryData ToXmlStream(T, TRest&&...) const = delete;
    template <MistakenForBool T, typename... TRest>
    CBinaryData ToXmlStream(bool, T, TRest&&...) const = delete;
    /// @}

protected:
    CXmlObjectBase();

    /// Keeps an object alive over events whose listeners may give up the last reference to it. An
    /// object that nobody holds yet stays as it is.
    class ZQXMLLIB9_API CHold {
    public:
        explicit CHold(const CXmlObjectBase& object);
        CHold(const CHold&) = delete;
        CHold& operator=(const CHold&) = delete;
        ~CHold();

    private:
        const CXmlObjectBase* m_object;
    };

    /// The local name of the object's element.
    const std::u16string& GetElementName() const noexcept { return m_elementName; }
    void SetElementName(const char16_t* name);
    static void SetElementName(CXmlObjectBase* object, const char16_t* name);

    /// \name The virtual operations of another object
    /// @{
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                    CXmlElement* cursor, const CXmlSerializationContext& context);
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                          const char16_t* namespaceUri, const CXmlSerializationContext& context,
                          bool isOptionalChoice);
    static void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                    const CXmlSerializationContext& context);
    /// @}

    /// \name Events of a collection, for one listener
    /// @{
    static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
    static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                         void* item);
    static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 void* item);
    /// \param index  -1: unknown; the data of the event is then null
    static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                            int index);
    static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink,
                                                    CXmlCollectionBase* collection, int index);
    /// @}

    /// \name Guards for generated setters
    /// @{

    /// A null `value` passes.
    /// \throws CZqInvalidParamException  the value's element has another name
    void Throw_IfElementNameDiffers(CXmlObjectBase* value, const char16_t* name) const;
    /// \throws CZqInvalidParamException  `value` is null
    void Throw_IfPropertyIsNull(CXmlObjectBase* value, const char16_t* name) const;
    /// @}

    /// Whether an element has this name, and this namespace unless namespaces are ignored.
    bool DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element,
                              const char16_t* name, const char16_t* ns) const;

    /// \name The restrictions of open content
    ///
    /// A restriction is a list of tokens, separated by single blanks: `##any`, `##other`,
    /// `##local`, `##targetNamespace`, or a URI, which lets the empty namespace pass too.
    /// Source: XML Schema Part 1, 3.10.
    /// @{
    bool IsNamespaceValid(const char16_t* ns, const char16_t* restriction,
                          const char16_t* targetNamespace) const;
    /// \throws CZqInvalidNamespaceException  "Invalid namespace [%s]. The namespace must be one of
    ///         [%s] where the target namespace is [%s]"
    void TestNamespace(const char16_t* ns, const char16_t* restriction,
                       const char16_t* targetNamespace) const;
    /// @}

    /// \name The selection of a choice, which a generated class keeps in `selected`
    ///
    /// `selected` is the name of the member that is set, or empty.
    /// @{

    /// \throws CZqInvalidStateException  another member is set
    void Choice_SelectElement(const char16_t* name, CXmlObjectBase* value,
                              std::u16string& selected) const;
    /// \throws CZqInvalidStateException  another member is set, and `valid` is true
    void Choice_SetElementValid(bool valid, const char16_t* name, std::u16string& selected) const;
    /// \throws CZqInvalidStateException  another member is set, and `count` isn't 0
    void Choice_CollectionChanged(const char16_t* name, std::int32_t count,
                                  std::u16string& selected) const;
    /// Reads a collection once: a `count` of 1 or more says that it has been read.
    /// \throws CZqValidationException  as `CXmlCollectionBase::ValidateCount`
    void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                CXmlElement*& cursor, std::int32_t& count,
                                const CXmlSerializationContext& context) const;
    /// @}

private:
    friend class ZqXmlLib9Data::CAttributeInfo;
    friend class ZqXmlLib9Data::CElementInfo;

    void DestroyOrQueue() const noexcept;

    /// An entry point that writes text, from the gate on.
    void WriteDocument(CTextStream& stream, bool writeHeader, bool format, EOLType eol,
                       const CXmlSerializationContext& context) const;
    /// An entry point that reads, from the gate on.
    template <typename TLoad>
    void ReadDocument(const CXmlSerializationContext& context, TLoad&& load);
    void ReadRoot(CXmlElement* root, const CXmlSerializationContext& context);

    std::u16string m_elementName;
    mutable std::atomic<std::int32_t> m_holders{0};
    mutable const CXmlObjectBase* m_nextToDestroy = nullptr;  ///< while both wait for that
};

}  // namespace ZqXmlLib9
