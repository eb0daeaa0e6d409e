"use strict";
const by = (id) => document.getElementById(id);
const LARGEST = 512 * 1024 * 1024; // bytes; larger files do not fit into the memory of a page

// The module inside this page, for the worker.
async function moduleBytes() {
  const packed = Uint8Array.from(atob(by("module").textContent), (c) => c.charCodeAt(0));
  const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream("gzip"));
  return new Response(stream).arrayBuffer();
}

const worker = new Worker(
  URL.createObjectURL(new Blob([by("worker").textContent], { type: "text/javascript" })),
);
const waiting = new Map();
let lastId = 0;
worker.onmessage = ({ data }) => {
  const { resolve, reject } = waiting.get(data.id);
  waiting.delete(data.id);
  if (data.error) reject(data.error);
  else resolve(data.result);
};
function ask(task, values = {}, moved = []) {
  const id = ++lastId;
  worker.postMessage({ id, task, ...values }, moved);
  return new Promise((resolve, reject) => waiting.set(id, { resolve, reject }));
}

const say = (text) => { by("status").textContent = text; };
const started = moduleBytes().then((bytes) => ask("start", { bytes }, [bytes]));
started.catch((error) => say(`This browser cannot run the page: ${error.message ?? error.messages}`));

const files = new Map(); // by key: name and summary
let lastKey = 0;

function save(content, name, type) {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([content], { type }));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

function show(title, html) {
  by("view").hidden = false;
  by("view").querySelector("h2").textContent = title;
  by("view").querySelector("iframe").srcdoc = html;
  by("view").scrollIntoView({ block: "start" });
}

function element(tag, text, className) {
  const made = document.createElement(tag);
  made.textContent = text;
  if (className) made.className = className;
  return made;
}

const stem = (name) => name.replace(/\.[^.]*$/, "") || "chart";

// What each button of a file does.
const ACTIONS = [
  ["Report", async (key, name) => show(name, await ask("report", { key }))],
  ["Save report", async (key, name) => save(await ask("report", { key }), `${stem(name)}.html`, "text/html")],
  ["Save CSV", async (key, name) => saveConverted(key, name, "csv", "text/csv")],
  ["Save JSON", async (key, name) => saveConverted(key, name, "json", "application/json")],
  ["Save CxF", async (key, name) => saveConverted(key, name, "cxf", "application/xml")],
  ["Save plain text", async (key, name) => save(await ask("plain", { key }), `${stem(name)}-plain.txt`, "text/plain")],
  ["Remove", async (key) => {
    await ask("close", { key });
    files.get(key).item.remove();
    files.delete(key);
    update();
  }],
];

async function saveConverted(key, name, form, type) {
  const { text, leftBehind } = await ask("convert", { key, form });
  save(text, `${stem(name)}.${form}`, type);
  say(leftBehind.length === 0 ? `Saved ${form.toUpperCase()}.` : `Saved. Left behind: ${leftBehind.join(" ")}`);
}

function verdict({ patches, space, bands, hasLab, tables }) {
  const parts = [patches === 1 ? "1 patch" : `${patches} patches`];
  if (space) parts.push(space);
  if (bands > 0) parts.push(`${bands} spectral bands`);
  if (hasLab) parts.push("Lab");
  if (tables > 1) parts.push(`${tables} tables; the report shows all, the other buttons take the first`);
  return parts.join(", ");
}

function failure(name, error) {
  if (error.name === "OutOfMemoryError") return `${name} needs more memory than a page has.`;
  return `${name} cannot be read: ${(error.messages ?? [String(error)]).join(" ")}`;
}

function addItem(key, name, facts) {
  const item = document.createElement("li");
  item.append(element("h2", name), element("p", verdict(facts)));
  const findings = document.createElement("ul");
  for (const finding of facts.findings.slice(0, 8)) {
    findings.append(element("li", `${finding.severity}: ${finding.sentence}`));
  }
  const more = facts.findings.length + facts.more - Math.min(facts.findings.length, 8);
  if (more > 0) findings.append(element("li", `${more} more findings in the report`));
  const buttons = element("p", "", "row");
  for (const [label, action] of ACTIONS) {
    const button = element("button", label);
    button.type = "button";
    button.setAttribute("aria-label", `${label}: ${name}`);
    button.onclick = () => {
      say("");
      action(key, name).catch((error) => say(failure(name, error)));
    };
    buttons.append(button);
  }
  item.append(findings, buttons);
  by("list").querySelector("ul").append(item);
  files.set(key, { name, item });
}

function update() {
  by("list").hidden = by("list").querySelector("ul").childElementCount === 0;
  by("compare").hidden = files.size < 2;
  for (const [id, preferred] of [["reference", 0], ["sample", 1]]) {
    const select = by(id), before = select.value;
    select.replaceChildren(...[...files].map(([key, file]) => new Option(file.name, key)));
    select.selectedIndex = Math.min(preferred, files.size - 1);
    if (select.dataset.chosen && files.has(Number(before))) select.value = before;
  }
}

async function open(name, read) {
  const key = ++lastKey;
  try {
    const bytes = await read();
    addItem(key, name, await ask("open", { key, name, bytes }, [bytes]));
    return key;
  } catch (error) {
    const item = element("li", failure(name, error), "failed");
    by("list").querySelector("ul").append(item);
    return null;
  }
}

async function openAll(list) {
  const given = [...list];
  const opened = [];
  await started;
  for (const [i, file] of given.entries()) {
    say(`Reading ${i + 1} of ${given.length}: ${file.name}`);
    const read = async () => {
      if (file.size > LARGEST) throw { messages: ["The file is too large for a page."] };
      return file.arrayBuffer();
    };
    const key = await open(file.name, read);
    if (key !== null) opened.push(key);
    update();
  }
  say(`${opened.length} of ${given.length} ${given.length === 1 ? "file" : "files"} read.`);
  if (opened.length === 2 && files.size === 2) await runCompare();
  else if (opened.length === 1) show(files.get(opened[0]).name, await ask("report", { key: opened[0] }));
}

let comparison = "";
async function runCompare() {
  const [reference, sample] = ["reference", "sample"].map((id) => Number(by(id).value));
  const title = `${files.get(sample).name} compared with ${files.get(reference).name}`;
  try {
    comparison = await ask("compare", { reference, sample });
    by("save-compare").disabled = false;
    show(title, comparison);
  } catch (error) {
    by("save-compare").disabled = true;
    say(`These charts cannot be compared: ${(error.messages ?? [String(error)]).join(" ")}`);
  }
}

by("files").onchange = (event) => openAll(event.target.files);
for (const id of ["reference", "sample"]) {
  by(id).onchange = () => { by(id).dataset.chosen = "yes"; };
}
by("run-compare").onclick = runCompare;
by("save-compare").onclick = () => save(comparison, "comparison.html", "text/html");
by("show-paste").onclick = () => {
  const isShown = (by("paste").hidden = !by("paste").hidden) === false;
  by("show-paste").setAttribute("aria-expanded", String(isShown));
  if (isShown) by("text").focus();
};
by("paste").onsubmit = (event) => {
  event.preventDefault();
  const text = by("text").value;
  if (text.trim() !== "") openAll([new File([text], "pasted text")]);
};
for (const type of ["dragenter", "dragover"]) {
  addEventListener(type, (event) => {
    event.preventDefault();
    by("drop").classList.add("over");
  });
}
addEventListener("dragleave", (event) => {
  if (event.relatedTarget === null) by("drop").classList.remove("over");
});
addEventListener("drop", (event) => {
  event.preventDefault();
  by("drop").classList.remove("over");
  openAll(event.dataTransfer.files);
});
