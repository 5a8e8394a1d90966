/// \file Exceptions.h
/// The exception family, the only way in which the library reports failures.
///
///     CZqException
///       CZqOverFlowException
///       CZqInvalidParamException
///       CZqInvalidStateException
///       CZqValidationException
///         CZqInvalidNamespaceException
///         CZqInvalidValueException
///
/// They are thrown by value and caught by reference. Where memory runs out, std::bad_alloc passes
/// through instead.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <iosfwd>
#include <memory>
#include <string>
#include <utility>

namespace ZqXmlLib9 {

/// A failure: a message, and the failure that caused it, if there is one.
///
/// A failure below an element is wrapped at each element level, so that the chain reads from the
/// root of the document down to the fault:
///
///     Failed to process the element [gpx]
///     Failed to process the element [trk]
///     Failed to find a required element [trkseg]
///
/// A plain value; copies share their inner exceptions, which never change.
class ZQXMLLIB9_API CZqException {
public:
    /// An empty message and no inner exception.
    CZqException();
    explicit CZqException(std::u16string message);
    /// Keeps a copy of `inner` in its dynamic type.
    CZqException(std::u16string message, const CZqException& inner);
    CZqException(const CZqException&);
    CZqException& operator=(const CZqException&);
    virtual ~CZqException();

    /// The message of this exception alone.
    const std::u16string& GetMessageW() const noexcept { return m_message; }

    /// The exception that caused this one, or null. It belongs to this exception.
    const CZqException* GetInnerException() const noexcept { return m_inner.get(); }

    /// The messages of the chain, outermost first, with a line feed between each two.
    std::u16string GetFullMessage() const;

    /// `GetFullMessage()` as UTF-8; U+FFFD stands for an unpaired surrogate.
    std::string GetFullMessageUtf8() const;

protected:
    /// A new heap copy of the dynamic type; the caller owns it. Every class overrides this.
    virtual CZqException* Clone() const;

private:
    std::u16string m_message;
    std::shared_ptr<const CZqException> m_inner;
};

/// Prints `GetFullMessageUtf8()`.
ZQXMLLIB9_API std::ostream& operator<<(std::ostream& stream, const CZqException& failure);

/// What every class of the family but the root repeats: its constructors and its `Clone`.
template <typename TSelf, typename TBase>
class ZQXMLLIB9_API CZqExceptionOf : public TBase {
public:
    CZqExceptionOf() = default;
    explicit CZqExceptionOf(std::u16string message) : TBase(std::move(message)) {}
    CZqExceptionOf(std::u16string message, const CZqException& inner)
        : TBase(std::move(message), inner)
    {}
    /// Takes message and inner exception from any exception of the family.
    explicit CZqExceptionOf(const CZqException& other) : TBase(other) {}

protected:
    CZqException* Clone() const override { return new TSelf(static_cast<const TSelf&>(*this)); }
};

/// A conversion of a decimal to a machine type, or a length, goes beyond its range.
class ZQXMLLIB9_API CZqOverFlowException
    : public CZqExceptionOf<CZqOverFlowException, CZqException> {
public:
    using CZqExceptionOf::CZqExceptionOf;
};

/// An argument has no meaning for the operation.
class ZQXMLLIB9_API CZqInvalidParamException
    : public CZqExceptionOf<CZqInvalidParamException, CZqException> {
public:
    using CZqExceptionOf::CZqExceptionOf;
};

/// The object's state, or the type of its value, doesn't allow the operation.
class ZQXMLLIB9_API CZqInvalidStateException
    : public CZqExceptionOf<CZqInvalidStateException, CZqException> {
public:
    using CZqExceptionOf::CZqExceptionOf;
};

/// A document or an object doesn't fit its content model.
class ZQXMLLIB9_API CZqValidationException
    : public CZqExceptionOf<CZqValidationException, CZqException> {
public:
    using CZqExceptionOf::CZqExceptionOf;
};

/// A namespace stands outside the restriction of open content.
class ZQXMLLIB9_API CZqInvalidNamespaceException
    : public CZqExceptionOf<CZqInvalidNamespaceException, CZqValidationException> {
public:
    using CZqExceptionOf::CZqExceptionOf;
};

/// A text or number is no value of its type.
class ZQXMLLIB9_API CZqInvalidValueException
    : public CZqExceptionOf<CZqInvalidValueException, CZqValidationException> {
public:
    using CZqExceptionOf::CZqExceptionOf;
};

}  // namespace ZqXmlLib9
