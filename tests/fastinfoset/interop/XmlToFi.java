// Converts XML documents to Fast Infoset with the FastInfoset library, used as a black box
// through its SAX serializer, for the interoperability tests and benchmarks of the reader.
//
//   java -cp <classes>:FastInfoset.jar XmlToFi [-utf16] in.xml out.fi [in.xml out.fi ...]
//
// -utf16 writes the character strings as UTF-16BE instead of UTF-8. Several pairs share one
// start of the virtual machine.
import com.sun.xml.fastinfoset.sax.SAXDocumentSerializer;
import java.io.BufferedInputStream;
import java.io.BufferedOutputStream;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.InputStream;
import java.io.OutputStream;
import javax.xml.parsers.SAXParserFactory;
import org.xml.sax.InputSource;
import org.xml.sax.XMLReader;

public final class XmlToFi {
    public static void main(String[] args) throws Exception {
        int first = 0;
        boolean utf16 = false;
        if (args.length > 0 && args[0].equals("-utf16")) {
            utf16 = true;
            first = 1;
        }
        if ((args.length - first) < 2 || (args.length - first) % 2 != 0) {
            System.err.println("usage: XmlToFi [-utf16] in.xml out.fi [in.xml out.fi ...]");
            System.exit(2);
        }
        SAXParserFactory factory = SAXParserFactory.newInstance();
        factory.setNamespaceAware(true);
        for (int i = first; i < args.length; i += 2) {
            try (InputStream in = new BufferedInputStream(new FileInputStream(args[i]));
                 OutputStream out = new BufferedOutputStream(new FileOutputStream(args[i + 1]))) {
                XMLReader reader = factory.newSAXParser().getXMLReader();
                SAXDocumentSerializer serializer = new SAXDocumentSerializer();
                if (utf16) serializer.setCharacterEncodingScheme("UTF-16BE");
                serializer.setOutputStream(out);
                reader.setContentHandler(serializer);
                reader.setProperty("http://xml.org/sax/properties/lexical-handler", serializer);
                reader.parse(new InputSource(in));
            }
        }
    }
}
