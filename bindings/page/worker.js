// Reads, converts and compares files away from the page, so that the page never waits.
const charts = new Map(); // by the number that the page gives
let library;

async function start({ bytes }) {
  library = createLibrary(await WebAssembly.compile(bytes));
}

function summary(chart) {
  const spaces = chart.channels.map((channel) => channel.name);
  return {
    patches: chart.length,
    space: chart.deviceSpace ?? (spaces.length > 0 ? spaces.join(", ") : ""),
    bands: chart.patches.wavelengths.length,
    hasLab: chart.patches.lab !== null,
    tables: chart.tables.length + 1,
    findings: [...chart.findings],
    more: chart.findings.more,
  };
}

const tasks = {
  start,
  open({ key, name, bytes }) {
    const chart = library.load(bytes, { name });
    charts.set(key, chart);
    return summary(chart);
  },
  close({ key }) {
    charts.get(key)?.free();
    charts.delete(key);
  },
  report: ({ key }) => charts.get(key).toHTML(),
  plain: ({ key }) => charts.get(key).plainText(),
  convert: ({ key, form }) => charts.get(key).convert(form),
  compare({ reference, sample }) {
    return charts.get(reference).compare(charts.get(sample)).toHTML();
  },
};

onmessage = async ({ data }) => {
  try {
    postMessage({ id: data.id, result: await tasks[data.task](data) });
  } catch (error) {
    const messages = error.messages ?? [error.message];
    postMessage({ id: data.id, error: { name: error.name, messages } });
  }
};
