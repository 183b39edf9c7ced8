# SPDX-License-Identifier: MIT
"""A small CIM-XML client for the tests: enough operations to drive the test, the results and the
associations, and to compare what two servers answer. One connection, used by one thread."""

import base64
import http.client
import urllib.parse
import xml.etree.ElementTree as ElementTree
from xml.sax.saxutils import escape, quoteattr

NAMESPACE = "root/kavex"


class CimError(Exception):
    """The server answered with a CIM status other than success."""

    def __init__(self, code, text):
        super().__init__(f"{code} {text}")
        self.code = code
        self.text = text


class HttpError(Exception):
    """The server answered with an HTTP status other than 200."""

    def __init__(self, status):
        super().__init__(f"HTTP {status}")
        self.status = status


class Path:
    """The name of an instance: class and keys. Key values are text, numbers or paths."""

    def __init__(self, class_name, keys):
        self.class_name = class_name
        self.keys = dict(keys)

    def __repr__(self):
        return f"{self.class_name}{self.keys!r}"

    def __eq__(self, other):
        return isinstance(other, Path) and (self.class_name.lower(), self.keys) == (
            other.class_name.lower(), other.keys)

    def __hash__(self):
        return hash((self.class_name.lower(), tuple(sorted(map(repr, self.keys.items())))))

    def xml(self):
        keys = ""
        for name, value in self.keys.items():
            if isinstance(value, Path):
                text = f"<VALUE.REFERENCE>{value.xml()}</VALUE.REFERENCE>"
            else:
                kind = "numeric" if isinstance(value, int) else "string"
                text = f'<KEYVALUE VALUETYPE="{kind}">{escape(str(value))}</KEYVALUE>'
            keys += f"<KEYBINDING NAME={quoteattr(name)}>{text}</KEYBINDING>"
        return f"<INSTANCENAME CLASSNAME={quoteattr(self.class_name)}>{keys}</INSTANCENAME>"

    @staticmethod
    def parse(element):
        """From INSTANCENAME, or any element that holds one."""
        name = element if element.tag == "INSTANCENAME" else element.find(".//INSTANCENAME")
        keys = {}
        for binding in name.findall("KEYBINDING"):
            reference, value = binding.find("VALUE.REFERENCE"), binding.find("KEYVALUE")
            if reference is not None:
                keys[binding.get("NAME")] = Path.parse(reference)
            elif value.get("VALUETYPE") == "numeric":
                keys[binding.get("NAME")] = int(value.text)
            else:
                keys[binding.get("NAME")] = value.text or ""
        return Path(name.get("CLASSNAME"), keys)


class Instance:
    """Class, path (None in the answer of GetInstance) and properties of an instance."""

    def __init__(self, class_name, path, properties):
        self.class_name = class_name
        self.path = path
        self.properties = properties

    def __getitem__(self, name):
        return self.properties[name]

    @staticmethod
    def parse(element):
        instance = element if element.tag == "INSTANCE" else element.find(".//INSTANCE")
        name = element.find(".//INSTANCENAME") if element.tag != "INSTANCE" else None
        properties = {}
        for child in instance:
            if child.tag.startswith("PROPERTY"):
                properties[child.get("NAME")] = parse_value(child)
        return Instance(instance.get("CLASSNAME"), None if name is None else Path.parse(name),
                        properties)


def parse_value(element):
    """The value below PROPERTY, PARAMVALUE or RETURNVALUE: text, a list of texts, a Path, None."""
    array = element.find("VALUE.ARRAY")
    if array is not None:
        return [value.text or "" for value in array.findall("VALUE")]
    reference = element.find("VALUE.REFERENCE")
    if reference is not None:
        return Path.parse(reference)
    value = element.find("VALUE")
    return None if value is None else value.text or ""


class MethodAnswer:
    """Return value (text, or None if there is none) and out-parameters of a method."""

    def __init__(self, value, parameters):
        self.value = value
        self.parameters = parameters


class Client:
    """`url` as in http://127.0.0.1:5988; `user` as (name, password)."""

    def __init__(self, url, user=None, timeout=60):
        parts = urllib.parse.urlsplit(url)
        self.host, self.port, self.timeout = parts.hostname, parts.port, timeout
        self.headers = {"Content-Type": 'application/xml; charset="utf-8"',
                        "CIMProtocolVersion": "1.0", "CIMOperation": "MethodCall"}
        if user is not None:
            token = base64.b64encode(":".join(user).encode()).decode()
            self.headers["Authorization"] = "Basic " + token
        self.connection = None

    def close(self):
        if self.connection is not None:
            self.connection.close()
            self.connection = None

    def post(self, body, headers):
        """Sends a request on the kept connection; a broken one is replaced once."""
        for attempt in (1, 2):
            if self.connection is None:
                self.connection = http.client.HTTPConnection(self.host, self.port,
                                                             timeout=self.timeout)
            try:
                self.connection.request("POST", "/cimom", body, {**self.headers, **headers})
                response = self.connection.getresponse()
                return response.status, response.read()
            except (http.client.BadStatusLine, ConnectionResetError, BrokenPipeError):
                self.close()
                if attempt == 2:
                    raise

    def exchange(self, method, cim_object, call):
        """The answer's IMETHODRESPONSE or METHODRESPONSE element."""
        body = ('<?xml version="1.0" encoding="utf-8"?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
                '<MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLEREQ>' + call +
                "</SIMPLEREQ></MESSAGE></CIM>").encode("utf-8")
        status, answer = self.post(body, {"CIMMethod": method,
                                          "CIMObject": urllib.parse.quote(cim_object, safe="=.,\"")})
        if status != 200:
            raise HttpError(status)
        response = ElementTree.fromstring(answer).find("MESSAGE/SIMPLERSP")[0]
        error = response.find("ERROR")
        if error is not None:
            raise CimError(int(error.get("CODE")), error.get("DESCRIPTION") or "")
        return response

    def intrinsic(self, method, parameters, namespace=NAMESPACE):
        """An intrinsic operation; `parameters` are (name, XML). Returns the IRETURNVALUE's elements."""
        local = "".join(f'<NAMESPACE NAME="{part}"/>' for part in namespace.split("/"))
        values = "".join(f'<IPARAMVALUE NAME="{name}">{xml}</IPARAMVALUE>'
                         for name, xml in parameters)
        call = (f'<IMETHODCALL NAME="{method}"><LOCALNAMESPACEPATH>{local}</LOCALNAMESPACEPATH>'
                f"{values}</IMETHODCALL>")
        answer = self.exchange(method, namespace, call).find("IRETURNVALUE")
        return [] if answer is None else list(answer)

    def names(self, class_name):
        return [Path.parse(e) for e in self.intrinsic(
            "EnumerateInstanceNames", [class_parameter("ClassName", class_name)])]

    def instances(self, class_name):
        return [Instance.parse(e) for e in self.intrinsic(
            "EnumerateInstances", [class_parameter("ClassName", class_name)])]

    def get(self, path):
        return Instance.parse(self.intrinsic("GetInstance", [("InstanceName", path.xml())])[0])

    def delete(self, path):
        self.intrinsic("DeleteInstance", [("InstanceName", path.xml())])

    def associators(self, path, **filters):
        return [Instance.parse(e) for e in self.associations("Associators", path, filters)]

    def associator_names(self, path, **filters):
        return [Path.parse(e) for e in self.associations("AssociatorNames", path, filters)]

    def references(self, path, **filters):
        return [Instance.parse(e) for e in self.associations("References", path, filters)]

    def reference_names(self, path, **filters):
        return [Path.parse(e) for e in self.associations("ReferenceNames", path, filters)]

    def associations(self, operation, path, filters):
        parameters = [("ObjectName", path.xml())]
        for name, value in filters.items():
            if name in ("AssocClass", "ResultClass"):
                parameters.append(class_parameter(name, value))
            else:
                parameters.append((name, f"<VALUE>{escape(value)}</VALUE>"))
        return self.intrinsic(operation, parameters)

    def invoke(self, path, method, parameters=(), namespace=NAMESPACE):
        """`parameters` are (name, value); a Path goes as a bare reference."""
        local = "".join(f'<NAMESPACE NAME="{part}"/>' for part in namespace.split("/"))
        values = "".join(f'<PARAMVALUE NAME="{name}" PARAMTYPE={quoteattr(kind)}>{xml}</PARAMVALUE>'
                         for name, kind, xml in map(method_parameter, parameters))
        call = (f'<METHODCALL NAME="{method}"><LOCALINSTANCEPATH><LOCALNAMESPACEPATH>{local}'
                f"</LOCALNAMESPACEPATH>{path.xml()}</LOCALINSTANCEPATH>{values}</METHODCALL>")
        keys = ",".join(f'{name}="{value}"' for name, value in path.keys.items())
        response = self.exchange(method, f"{namespace}:{path.class_name}.{keys}", call)
        value = response.find("RETURNVALUE")
        return MethodAnswer(None if value is None else parse_value(value),
                            {e.get("NAME"): parse_value(e) for e in response.findall("PARAMVALUE")})


def class_parameter(name, class_name):
    return (name, f'<CLASSNAME NAME="{class_name}"/>')


def method_parameter(parameter):
    name, value = parameter
    if isinstance(value, Path):
        return name, "reference", f"<VALUE.REFERENCE>{value.xml()}</VALUE.REFERENCE>"
    return name, "string", f"<VALUE>{escape(value)}</VALUE>"
