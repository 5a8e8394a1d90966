/// \file FastInfosetContext.h
/// The settings of Fast Infoset.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/fastinfoset/FIVocabulary.h>
#include <ZqXmlLib9/types/ItemType.h>

#include <array>
#include <cstdint>
#include <string>

namespace ZqXmlLib9 {

/// How Fast Infoset documents are written, and the vocabulary that both sides may begin with.
///
/// A plain value, a member of every `CXmlSerializationContext`. Any number of threads may write and
/// read with one as long as none changes it.
class ZQXMLLIB9_API CFastInfosetContext {
public:
    /// How the values of one item type are written.
    struct EncodedCharacterString {
        std::uint32_t kind = 0;   ///< 0: text; 1: restricted alphabet; 2: encoding algorithm
        std::uint32_t index = 0;  ///< of the alphabet, 1 to 2, or of the algorithm, 1 to 10
    };

    /// All values as text, an index for those of up to 5 code units, no generated vocabulary.
    CFastInfosetContext();
    CFastInfosetContext(const CFastInfosetContext& other);
    CFastInfosetContext& operator=(const CFastInfosetContext& other);
    ~CFastInfosetContext();

    /// 0: UTF-8, and nothing else.
    std::uint8_t GetDefaultStringEncoding() const noexcept { return m_defaultStringEncoding; }

    /// \throws CZqInvalidParamException  "The item type %d has no encoding" outside `ItemType`
    void SetEncoding(ItemType type, EncodedCharacterString encoding);
    /// \throws CZqInvalidParamException  as above
    EncodedCharacterString GetEncoding(ItemType type) const;

    /// Chooses the shortest form for the values of each type but text: octets for binary data,
    /// integers of up to 64 bits, booleans and floating-point numbers, half octets for decimals,
    /// integers and dates.
    ///
    /// It's for values that fit these forms: an `ui8` above 9223372036854775807, and every duration
    /// and every time with "+" or a fraction, fail to be written.
    void SetSuggestedValues();

    /// Texts of elements that are shorter, in code units, are written once and then by number;
    /// 0: none is. Default 6.
    std::uint32_t GetElementMaxAddLength() const noexcept { return m_elementMaxAddLength; }
    void SetElementMaxAddLength(std::uint32_t length) noexcept { m_elementMaxAddLength = length; }
    /// The same for the values of attributes.
    std::uint32_t GetAttributeMaxAddLength() const noexcept { return m_attributeMaxAddLength; }
    void SetAttributeMaxAddLength(std::uint32_t length) noexcept
    {
        m_attributeMaxAddLength = length;
    }

    /// Whether documents begin with the vocabulary below, and name its URI. Both sides must hold
    /// the same one: the URI of a document that is read isn't compared.
    bool GetUseGeneratedVocabulary() const noexcept { return m_useGeneratedVocabulary; }
    void SetUseGeneratedVocabulary(bool use) noexcept { m_useGeneratedVocabulary = use; }

    /// The generated vocabulary, for filling it. It belongs to this object; documents add to
    /// copies of it.
    CFIVocabulary* GetVocabulary() noexcept { return &m_vocabulary; }
    const CFIVocabulary* GetVocabulary() const noexcept { return &m_vocabulary; }

    /// Names the generated vocabulary in documents. Empty: `urn:zqxmllib9:vocabulary`.
    const std::u16string& GetExternalVocabularyURI() const noexcept { return m_externalUri; }
    void SetExternalVocabularyURI(std::u16string uri) { m_externalUri = std::move(uri); }

private:
    std::uint8_t m_defaultStringEncoding = 0;
    std::array<EncodedCharacterString, 29> m_encodings;  ///< by `ItemType`
    std::uint32_t m_attributeMaxAddLength = 6;
    std::uint32_t m_elementMaxAddLength = 6;
    bool m_useGeneratedVocabulary = false;
    CFIVocabulary m_vocabulary;
    std::u16string m_externalUri;
};

}  // namespace ZqXmlLib9
