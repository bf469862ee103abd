#pragma once

#include <atomic>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/fastinfoset/finfodecl.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXmlData {
class CElementInfo;
class CAttributeInfo;
}  // namespace OrvexXmlData

namespace OrvexXml {

class CXmlWriter;
class CXmlElement;
class CXmlDocument;
class CXmlTextWriter;
class CJsonTextWriter;
class CSerializationContext;
class CXmlObjectBase;
class CXmlCollectionBase;
class CElement;

// Receives notifications (collection changes) from the objects it listens to.
class ORVEXXML_API IEventSink {
public:
    enum MsgType {
        MsgType_CollectionChange = 0,
        MsgType_CollectionAdd = 1,
        MsgType_CollectionAddComplete = 2,
        MsgType_CollectionRemove = 3,
        MsgType_CollectionRemoveComplete = 4
    };
    virtual void OnEvent(CXmlObjectBase* pSource, MsgType type, void* pData) = 0;

protected:
    ~IEventSink() {}
};

// The runtime's own version; generated code announces its generator's version through
// Register, and every public entry point refuses to work on a mismatch.
const int ORVEXXML_VERSION_MAJOR = 16;
const int ORVEXXML_VERSION_MINOR = 1;

// Records the version of the generator that produced the calling code.
ORVEXXML_API void Register(int nMajor, int nMinor);

// Whether ns passes a constraint in the form of an XSD wildcard's namespace attribute: a
// list of tokens separated by single blanks, each "##any", "##other", "##local",
// "##targetNamespace" or a literal URI.
ORVEXXML_API bool IsNamespaceValid(const std::string& strNamespace, const std::string& strRestriction,
                                   const std::string& strTargetNamespace);
// Throws COxInvalidNamespaceException when IsNamespaceValid is false.
ORVEXXML_API void TestNamespace(const std::string& strNamespace, const std::string& strRestriction,
                                const std::string& strTargetNamespace);

// Root of everything that can serialise itself. Reference counted (AddRef/Release);
// an object starts with a count of 0 and deletes itself when the count falls back to 0.
//
// The order of the virtual operations is part of the interface with generated code.
// Entry points of subsystems that are not present yet (Fast Infoset) take their slots in this order when they
// arrive.
class ORVEXXML_API CXmlObjectBase : public IEventSink {
    // The metadata classes drive the protected walks of the objects they describe.
    friend class OrvexXmlData::CElementInfo;
    friend class OrvexXmlData::CAttributeInfo;

public:
    CXmlObjectBase();
    // A copy carries the element name; it is a new object, held by nobody yet.
    CXmlObjectBase(const CXmlObjectBase& other);
    // Assignment copies the element name; the target keeps its own reference count.
    CXmlObjectBase& operator=(const CXmlObjectBase& other);

    // --- virtual slots, in interface order -------------------------------------------
    void OnEvent(CXmlObjectBase* pSource, IEventSink::MsgType type, void* pData) override;
    virtual CXmlObjectBase* GetBase() = 0;
    // Writes the object as an XML document into a file, in the given encoding. With
    // AsyncToXmlFile(true) and no compression the text goes to the disk while it is written;
    // otherwise the document is built in memory and written with one call. GZip compresses
    // the file; ZLib is refused for files ("ZLIB Compression only available for To Stream
    // methods.").
    virtual void ToXmlFile(const char* pszFileName, bool bHeader, bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                           const CSerializationContext& ctx, CompressionType eCompression) const;
    // Writes the object as a Fast Infoset document into a file, always built in memory by
    // ToFastInfosetStream. ZLib compression is refused for files.
    virtual void ToFastInfosetFile(const char* pszFileName, FInfoDecl eDecl, const CSerializationContext& ctx,
                                   CompressionType eCompression) const;
    // Writes the object as a JSON document into a file, by the rules of ToXmlFile. The file
    // holds the encoded text only: a UTF-16 file written from memory has no byte order mark.
    virtual void ToJsonFile(const char* pszFileName, bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                            const CSerializationContext& ctx, CompressionType eCompression) const;
    // Writes the object as an XML document in the local encoding.
    virtual std::string ToXml(bool bHeader, bool bFormatted, EOLType eEOL, const CSerializationContext& ctx) const;
    // Writes the object as a JSON document in the local encoding: one object with one member
    // named after the root element, in the mode of ctx.GetJsonContext().
    virtual std::string ToJson(bool bFormatted, EOLType eEOL, const CSerializationContext& ctx) const;
    // Writes the object as an XML document in the given encoding, as bytes, compressed as
    // gzip or zlib data if asked.
    virtual CBinaryData ToXmlStream(bool bHeader, bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                                    const CSerializationContext& ctx, CompressionType eCompression) const;
    // Writes the object as a Fast Infoset document, with the XML declaration eDecl in front
    // and the settings of ctx.GetFIContext(), compressed if asked.
    virtual CBinaryData ToFastInfosetStream(FInfoDecl eDecl, const CSerializationContext& ctx,
                                            CompressionType eCompression) const;
    // Writes the object as a JSON document in the given encoding, as bytes, compressed if
    // asked.
    virtual CBinaryData ToJsonStream(bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                                     const CSerializationContext& ctx, CompressionType eCompression) const;
    // Reads the object from a file, which may hold gzip or zlib data (not with
    // AsyncFromXmlFile(true), which reads plain XML only).
    virtual void FromXmlFile(const char* pszFileName, const CSerializationContext& ctx);
    // Reads the object from a JSON file: UTF-8, with or without a byte order mark.
    virtual void FromJsonFile(const char* pszFileName, const CSerializationContext& ctx);
    // Reads the object from XML text: wide text (converted to UTF-16 for the parser), or
    // narrow text parsed in the encoding its declaration names, UTF-8 if none.
    virtual void FromXml(const wchar_t* pszXml, const CSerializationContext& ctx);
    virtual void FromXml(const char* pszXml, const CSerializationContext& ctx);
    // Reads the object from JSON text in the mode of ctx.GetJsonContext(): the JSON becomes XML
    // text, which is read as FromXmlStream reads it. Outside JsonRoundTrip_Full the JSON has no
    // namespaces, so names are matched without them: the call sets ctx's IgnoreNamespaces for
    // its length, which is why a context can't serve JSON reading on two threads at a time.
    // Narrow text is local text; a wide text is converted to it.
    virtual void FromJson(const wchar_t* pszJson, const CSerializationContext& ctx);
    virtual void FromJson(const char* pszJson, const CSerializationContext& ctx);
    // Reads the object from bytes: XML in any encoding the parser recognises, or gzip or zlib
    // data around it.
    virtual void FromXmlStream(const CBinaryData& data, const CSerializationContext& ctx);
    virtual void FromXmlStream(unsigned char* const pData, OxULong nLength, const CSerializationContext& ctx);
    // Reads the object from JSON bytes: UTF-8, with or without a byte order mark.
    virtual void FromJsonStream(const CBinaryData& data, const CSerializationContext& ctx);
    virtual void FromJsonStream(unsigned char* const pData, OxULong nLength, const CSerializationContext& ctx);
    // Reads the object from open content: the element is written as XML text with the
    // default context, and that text is read with ctx.
    virtual void FromXmlElement(const CElement* pElement, const CSerializationContext& ctx);
    // Reads the object from an element of a document the caller holds.
    virtual void FromXmlElement(const CXmlElement* pElement, const CSerializationContext& ctx);

protected:
    virtual ~CXmlObjectBase();
    // The namespace of the root element when the object is written as a document.
    virtual std::string GetTargetNamespace() const = 0;

public:
    // The namespace handed to the element descriptions while reading.
    virtual std::string GetNamespace() const = 0;

protected:
    virtual void AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const;
    virtual void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                           bool bOptionalChoice) const = 0;
    virtual CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                                     bool bOptionalChoice) = 0;
    // --- end of virtual slots ----------------------------------------------------------

public:
    const CXmlObjectBase* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

    OxLong AddRef() { return m_lRefCount.fetch_add(1, std::memory_order_relaxed) + 1; }
    // Drops one reference; the call that brings the count to 0 frees the object (see Free).
    OxLong Release() {
        OxLong lCount = m_lRefCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (lCount == 0) Free(this);
        return lCount;
    }

protected:
    const std::string& GetElementName() const { return m_strElementName; }
    void SetElementName(const char* pszName) { m_strElementName = pszName ? pszName : ""; }
    static void SetElementName(CXmlObjectBase* pObject, const char* pszName) { pObject->SetElementName(pszName); }

    // Static forms that let collections and metadata classes reach the protected virtuals.
    static void AttributesToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter,
                                    const CSerializationContext& ctx) {
        pObject->AttributesToXml_Int(pWriter, ctx);
    }
    static void ToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                          const CSerializationContext& ctx, bool bOptionalChoice) {
        pObject->ToXml_Int(pWriter, bRoot, pszNamespace, ctx, bOptionalChoice);
    }
    static CXmlElement* FromXml_Int(CXmlObjectBase* pObject, CXmlElement* pElement, CXmlElement* pFirstChild,
                                    const CSerializationContext& ctx) {
        return pObject->FromXml_Int(pElement, pFirstChild, ctx, false);
    }

    // Whether an element has the given local name and, unless namespaces are ignored, namespace.
    bool DoesElementNameMatch(const CSerializationContext& ctx, const CXmlElement* pElement, const char* pszName,
                              const char* pszNamespace) const;

    // The version test of every public entry point: throws on a mismatch.
    static void CheckVersion();
    // Reads the object from the root element of a loaded document.
    void ReadDocument(CXmlDocument& doc, const CSerializationContext& ctx);
    // The body of every text write: settings, declaration, the walk, the end of the document.
    void WriteDocument(CXmlTextWriter& writer, bool bHeader, bool bFormatted, EOLType eEOL,
                       const CSerializationContext& ctx) const;
    // The same for a JSON document.
    void WriteJsonDocument(CJsonTextWriter& writer, bool bFormatted, EOLType eEOL,
                           const CSerializationContext& ctx) const;

    // Helpers that keep the one-of rule of a choice. 'selected' is the generated class's
    // record of the member that is set (its element name), empty when none is.
    static void Choice_SelectElement(const char* pszName, CXmlObjectBase* pValue, std::string& selected);
    static void Choice_SetElementValid(bool bValid, const char* pszName, std::string& selected);
    static void Choice_CollectionChanged(const char* pszName, OxLong nCount, std::string& selected);

    // Collection events: each calls OnEvent on pListener with the collection's GetBase() as
    // source. The remove forms pass a pointer to a copy of the index, or null for index -1.
    static void FireOnCollectionChangeEvent(IEventSink* pListener, CXmlCollectionBase* pCollection);
    static void FireOnCollectionAddEvent(IEventSink* pListener, CXmlCollectionBase* pCollection, void* pItem);
    static void FireOnCollectionAddCompleteEvent(IEventSink* pListener, CXmlCollectionBase* pCollection, void* pItem);
    static void FireOnCollectionRemoveEvent(IEventSink* pListener, CXmlCollectionBase* pCollection, int nIndex);
    static void FireOnCollectionRemoveCompleteEvent(IEventSink* pListener, CXmlCollectionBase* pCollection, int nIndex);

    // Reads a collection member of a choice by hand: once only (nCount counts the turns
    // taken), moving pCurrent past what the collection consumed and checking its count.
    static void Choice_Read_Collection(CXmlCollectionBase* pCollection, CXmlElement* pParent, CXmlElement*& pCurrent,
                                       OxLong& nCount, const CSerializationContext& ctx);

    // Guards for generated property setters.
    static void Throw_IfPropertyIsNull(CXmlObjectBase* pValue, const char* pszName);
    static void Throw_IfElementNameDiffers(CXmlObjectBase* pValue, const char* pszName);

    // The test of a namespace against a wildcard constraint such as "##other ##local".
    void TestNamespace(const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace) const;
    bool IsNamespaceValid(const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace) const;

private:
    // Reads the XML text that a LoadJson form made of the JSON input, with namespaces ignored
    // unless the mode keeps them; the context's setting is restored however the call ends.
    void FromJson_Int(const CBinaryData& data, const CSerializationContext& ctx);

    // Deletes pObject. An object holds children that hold children, as deep as a document
    // nests, and freeing them by recursion would take stack at each level. So an object whose
    // count falls to 0 while another object is being deleted on this thread waits in a queue,
    // chained through its own link, and the outermost deletion frees the queue in a loop: the
    // stack stays flat at any depth, and everything is freed before the outermost Release
    // returns.
    static void Free(CXmlObjectBase* pObject);

    std::string m_strElementName;
    std::atomic<OxLong> m_lRefCount;
    CXmlObjectBase* m_pNextToFree;  // the link of the queue of Free
};

}  // namespace OrvexXml
