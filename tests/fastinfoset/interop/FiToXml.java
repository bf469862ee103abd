// Reads Fast Infoset documents with the reference parser and XML documents with the JDK's
// parser, and prints both as one canonical list of events, so that a test can tell whether a
// Fast Infoset document holds the same elements, attributes and text as an XML document.
//
//   java FiToXml fi FILE              canonical events of a Fast Infoset document
//   java FiToXml xml FILE             canonical events of an XML document
//   java FiToXml compare MANIFEST     each line "NAME FI-FILE XML-FILE"; prints one line per
//                                     difference or refusal, nothing when all agree
//
// Events: "S {uri}local" for a start tag, then "A {uri}local=value" for each attribute in name
// order (namespace declarations left out), "T text" for the text between two tags, "E" for an end tag.
import java.io.BufferedReader;
import java.io.FileInputStream;
import java.io.FileReader;
import java.io.InputStream;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import java.util.regex.Pattern;
import javax.xml.parsers.SAXParserFactory;
import org.xml.sax.Attributes;
import org.xml.sax.InputSource;
import org.xml.sax.XMLReader;
import org.xml.sax.helpers.DefaultHandler;

public class FiToXml {
    static class Canonical extends DefaultHandler {
        final List<String> events = new ArrayList<>();
        final StringBuilder text = new StringBuilder();

        void flush() {
            if (text.length() > 0) events.add("T " + text);
            text.setLength(0);
        }

        @Override
        public void startElement(String uri, String local, String qName, Attributes atts) {
            flush();
            events.add("S {" + uri + "}" + local);
            Map<String, String> sorted = new TreeMap<>();
            for (int i = 0; i < atts.getLength(); ++i) {
                String q = atts.getQName(i);
                if (q.equals("xmlns") || q.startsWith("xmlns:")) continue;
                sorted.put("{" + atts.getURI(i) + "}" + atts.getLocalName(i), atts.getValue(i));
            }
            for (Map.Entry<String, String> e : sorted.entrySet()) events.add("A " + e.getKey() + "=" + e.getValue());
        }

        @Override
        public void endElement(String uri, String local, String qName) {
            flush();
            events.add("E");
        }

        @Override
        public void characters(char[] ch, int start, int length) {
            text.append(ch, start, length);
        }
    }

    static List<String> readFastInfoset(String file) throws Exception {
        XMLReader reader = new com.sun.xml.fastinfoset.sax.SAXDocumentParser();
        reader.setFeature("http://xml.org/sax/features/namespaces", true);
        return read(reader, file);
    }

    static List<String> readXml(String file) throws Exception {
        SAXParserFactory factory = SAXParserFactory.newInstance();
        factory.setNamespaceAware(true);
        return read(factory.newSAXParser().getXMLReader(), file);
    }

    static List<String> read(XMLReader reader, String file) throws Exception {
        Canonical handler = new Canonical();
        reader.setContentHandler(handler);
        try (InputStream in = new FileInputStream(file)) {
            reader.parse(new InputSource(in));
        }
        return handler.events;
    }

    static final Pattern INTEGER = Pattern.compile("[-+]?[0-9]+");
    static final Pattern HEX = Pattern.compile("[0-9A-Fa-f]+");

    // A floating-point text of either side as a double: the library writes "INF", "-INF" and
    // "NaN", the reference parser Java's own spellings.
    static Double asDouble(String s) {
        switch (s) {
            case "INF": return Double.POSITIVE_INFINITY;
            case "-INF": return Double.NEGATIVE_INFINITY;
            case "NaN": return Double.NaN;
            default: break;
        }
        try {
            return Double.valueOf(s);
        } catch (NumberFormatException e) {
            return null;
        }
    }

    // Whether two values are one value: the same text; or the same integer; or, for other
    // numbers, the same within the precision of a float, since the text form rounds where the
    // binary one does not ("1" and "1.0" agree); hex digits in either case.
    static boolean sameValue(String fi, String xml) {
        if (fi.equals(xml)) return true;
        if (INTEGER.matcher(fi).matches() && INTEGER.matcher(xml).matches())
            return new java.math.BigInteger(fi.replace("+", "")).equals(new java.math.BigInteger(xml.replace("+", "")));
        Double a = asDouble(fi), b = asDouble(xml);
        if (a != null && b != null) {
            if (a.isNaN() || b.isNaN() || a.isInfinite() || b.isInfinite()) return a.equals(b);
            return Math.abs(a - b) <= 1e-6 * Math.max(Math.abs(a), Math.abs(b));
        }
        return HEX.matcher(fi).matches() && fi.equalsIgnoreCase(xml);
    }

    static boolean sameEvent(String fi, String xml) {
        if (fi.equals(xml)) return true;
        if (fi.startsWith("T ") && xml.startsWith("T ")) return sameValue(fi.substring(2), xml.substring(2));
        int a = fi.indexOf('='), b = xml.indexOf('=');
        if (fi.startsWith("A ") && xml.startsWith("A ") && a > 0 && b > 0 && fi.substring(0, a).equals(xml.substring(0, b)))
            return sameValue(fi.substring(a + 1), xml.substring(b + 1));
        return false;
    }

    static Throwable innermost(Throwable e) {
        while (true) {
            Throwable inner = e instanceof org.xml.sax.SAXException ? ((org.xml.sax.SAXException) e).getException()
                                                                      : e.getCause();
            if (inner == null || inner == e) return e;
            e = inner;
        }
    }

    static void compare(String name, String fiFile, String xmlFile) {
        List<String> fi, xml;
        try {
            fi = readFastInfoset(fiFile);
        } catch (Exception e) {
            System.out.println(name + ": refused: " + innermost(e).getMessage());
            return;
        }
        try {
            xml = readXml(xmlFile);
        } catch (Exception e) {
            System.out.println(name + ": the XML document can't be read: " + e);
            return;
        }
        int n = Math.max(fi.size(), xml.size());
        for (int i = 0; i < n; ++i) {
            String f = i < fi.size() ? fi.get(i) : "(end)";
            String x = i < xml.size() ? xml.get(i) : "(end)";
            if (!sameEvent(f, x)) {
                System.out.println(name + ": event " + i + ": Fast Infoset [" + f + "] XML [" + x + "]");
                return;
            }
        }
    }

    public static void main(String[] args) throws Exception {
        if (args.length != 2) {
            System.err.println("usage: FiToXml fi|xml FILE, or FiToXml compare MANIFEST");
            System.exit(2);
        }
        switch (args[0]) {
            case "fi":
                for (String e : readFastInfoset(args[1])) System.out.println(e);
                break;
            case "xml":
                for (String e : readXml(args[1])) System.out.println(e);
                break;
            case "compare":
                // The reference parser reports its failures on the error stream as well; the
                // comparison reports each one once, on its own line.
                System.setErr(new java.io.PrintStream(java.io.OutputStream.nullOutputStream()));
                try (BufferedReader in = new BufferedReader(new FileReader(args[1]))) {
                    String line;
                    while ((line = in.readLine()) != null) {
                        String[] parts = line.split(" ");
                        if (parts.length == 3) compare(parts[0], parts[1], parts[2]);
                    }
                }
                break;
            default:
                System.err.println("unknown mode " + args[0]);
                System.exit(2);
        }
    }
}
